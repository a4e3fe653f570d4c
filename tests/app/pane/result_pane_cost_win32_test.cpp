// Costs of filling the result pane: processor time, heap and windows.
#include "tests/app/pane/result_pane_fixture_win32.h"

namespace velvox::testing {
namespace {

// Processor time of this thread, which other programs on the machine hardly affect.
template <class Action>
double processorSecondsOf(Action action) {
    const auto used = [] {
        FILETIME created, ended, kernel, user;
        GetThreadTimes(GetCurrentThread(), &created, &ended, &kernel, &user);
        const auto ticks = [](FILETIME time) {
            return static_cast<double>(time.dwHighDateTime) * 0x1p32 + time.dwLowDateTime;
        };
        return (ticks(kernel) + ticks(user)) / 1e7;
    };
    const double begin = used();
    action();
    return used() - begin;
}

// The pane shows only as much of a text as the control can handle in a bounded time.
TEST_F(ResultPaneTest, NothingTakesTwiceAsLongAsTheLongestList) {
    std::string noise, fonts;
    for (unsigned seed = 1; noise.size() < 1'000'000; seed = seed * 1103515245U + 12345U)
        noise += static_cast<char>(seed >> 16);
    for (int i = 0; i < 50'000; ++i)
        fonts += "<font face=f" + std::to_string(i % 60) +
                 " size=" + std::to_string(i / 60 % 7 + 1) + ">x</font>";
    const std::pair<const char*, std::string> fillings[] = {
        {"noise", noise},
        {"letters", std::string(1'000'000, 'x')},
        {"words", numbered("wordswordswordswordswords ", 40'000)},
        {"large words", "<font size=6>" + numbered("wordsword ", 100'000)},
        {"odd byte", std::string(256 * 1024, '\x80')},
        {"line breaks", numbered("<br>", 200'000)},
        {"short lines", numbered("x<br>", 200'000)},
        {"links", numbered("<a href='http://h/#'>Link #</a><br>", 100'000)},
        {"links apart", numbered("<a href='http://h/#'>#</a>x<br>", 100'000)},
        {"fonts", fonts},
        {"nested fonts", numbered("<font size=7>x<font size=1>y", 100'000)},
        {"NULs", std::string(1'000'000, '\0')},
    };
    const std::string longest = imageLines(32767);
    const auto cost = [&](const std::string& html) {
        return processorSecondsOf([&] { pane.DocumentHTML(html); });
    };
    double reference = cost(longest);
    EXPECT_LT(reference, 20) << "far below what formatting link by link would take";
    const TextLink last = pane.links().at(32766);
    EXPECT_EQ(shownAt(last.begin, last.end), "Download Image 32767");
    EXPECT_TRUE(isLink(last.begin));
    for (const auto& [name, html] : fillings) {
        double own = cost(html);
        // A busy machine can slow down one of the two measurements, so both are repeated in turn.
        for (int again = 0; again < 3 && own >= 2 * reference; ++again) {
            reference = cost(longest);
            own = cost(html);
        }
        EXPECT_LT(own, 2 * reference) << name;
    }
    pane.DocumentHTML("fine again");
    EXPECT_EQ(shown(), "fine again");
}

TEST_F(ResultPaneTest, ManyWritesLeaveNothingBehind) {
    // Blocks in use on the heap that the program shares with the system's controls.
    const auto heapBlocks = [heap = GetProcessHeap()] {
        int count = 0;
        for (PROCESS_HEAP_ENTRY entry{}; HeapWalk(heap, &entry);)
            count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        return count;
    };
    // After a text of so many lines, the pane replaces its text control.
    const std::string list = imageLines(210);
    pane.DocumentHTML(list);
    pane.DocumentHTML("x");
    const int blocksBefore = heapBlocks();
    const int before = liveHandles();
    for (int i = 0; i < 1000; ++i)
        pane.DocumentHTML(i % 50 == 0 ? list : "<a href='http://h/x'>Download</a><br>two");
    EXPECT_EQ(liveHandles(), before);
    EXPECT_LT(heapBlocks(), blocksBefore + 100);
    EXPECT_EQ(GetWindow(pane.handle(), GW_CHILD), text());
    EXPECT_EQ(GetWindow(text(), GW_HWNDNEXT), nullptr) << "a replaced control is still there";
}

}  // namespace
}  // namespace velvox::testing
