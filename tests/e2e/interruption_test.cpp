// A second Download, Close and the end of the program during a run.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

// Much less than the minute that a page may take, but enough on a busy machine.
constexpr Milliseconds atOnce{20'000};

// The second click of a double click is meant for the control that was visible at the first one.
TEST(InterruptionTest, ADoubleClickOnDownloadDoesNotCloseTheResult) {
    const Proxy proxy([](const Exchange& to) { to.reply("nothing"); });
    const Program program(proxy.port());
    const auto tryAt = [&](Point at) {
        program.enter("http://www.veoh.com/videos/v1?");
        InputSimulator().moveTo(at).press().release().press().release().act();
        driver().waitVisible(program.control(controlId("outer")));
        program.expectPane("<font face='tahoma' size='2' color='red'>Download Failed !</font>");
        driver().ping(program.window());
        EXPECT_TRUE(program.areaShown());
    };
    const Bounds button = driver().rect(program.control(controlId("UniXPButton1")));
    tryAt(middleOf(button));
    const Bounds close = driver().rect(program.control(controlId("isButton1")));
    program.closeArea();
    tryAt({std::max(button.left, close.left) + 5, button.top + 1});
}

// Sends a long comic book and forwards one site; the other sites stay silent.
void serveSlowSites(const Exchange& to) {
    static const std::string book = [] {
        std::string pages;
        for (int page = 0; page < 32767; ++page) pages += "<page> p.jpg </page>\n";
        return pages;
    }();
    if (to.asksFor("config.xml"))
        to.reply(book);
    else if (to.asksFor("comic"))
        to.reply("<iframe FRAMEBORDER='0' src='http://comic.vuilen.com/b/index.php'></iframe>");
    else if (to.asksFor("veoh"))
        to.forward();
    else
        to.staySilent();
}

void openMenu(const Program& program, ControlId over) {
    InputSimulator().click(middleOf(driver().rect(program.control(over))), 3).act();
    program.awaitMenu();
}

void command(const Program& program, const char* number) {
    driver().ask({"post", program.window(), "0x112", number, "0"});
}

// The program must end at once, however it is closed and in every state: while it waits for a page,
// while it collects a long comic book, or in the loop of a menu or a message box.
TEST(InterruptionTest, TheProgramEndsAtOnceInAnyState) {
    const Proxy proxy(&serveSlowSites);
    using Act = std::function<void(const Program&)>;
    const auto startAnd = [&](const char* address, std::size_t requests) {
        return [&proxy, address, requests](const Program& program) {
            const std::size_t before = proxy.addresses().size();
            program.start(address);
            ASSERT_TRUE(proxy.asked(before + requests));
        };
    };
    const Act fetch = startAnd("http://www.youtube.com/watch?v=abc", 1);
    const Act collect = startAnd("http://comic.vuilen.com/view_book_detail.php?bookid=1", 2);
    const Act openWindowMenu = [](const Program& p) {
        InputSimulator().key("alt+space").act();
        p.awaitMenu();
    };
    const Act close = [](const Program& p) { driver().ask({"close", p.window()}); };
    const Act altF4 = [](const Program&) { InputSimulator().key("alt+F4").act(); };
    const struct {
        const char* name;
        Act open, end;
    } rows[] = {
        {"quit button", fetch, [](const Program& p) { p.click(controlId("isButton2")); }},
        {"Alt+F4", fetch, altF4},
        // The list box's class handles F4 itself.
        {"Alt+F4 in the list", [](const Program&) { InputSimulator().key("Tab").key("Tab").act(); },
         altF4},
        {"WM_CLOSE", fetch, close},
        {"taskbar menu", fetch, [&](const Program& p) { command(p, "0xF060"); }},
        {"taskbar menu, minimised", fetch,
         [&](const Program& p) {
             command(p, "0xF020");
             command(p, "0xF060");
         }},
        {"comic book", collect, close},
        {"menu of the pane",
         [&](const Program& p) {
             p.start("http://www.veoh.com/videos/v669398tRxFQc4d?");
             p.awaitEndOfRun();
             openMenu(p, controlId("output"));
         },
         close},
        {"menu of the address box", [&](const Program& p) { openMenu(p, controlId("linkin")); },
         close},
        {"menu of the window", openWindowMenu, close},
        {"its entry Close", openWindowMenu, [](const Program& p) { p.chooseFromMenu("c"); }},
        {"message box",
         [](const Program& p) {
             p.start("no address");
             driver().waitBox();
         },
         close},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Program program(proxy.port());
        row.open(program);
        row.end(program);
        EXPECT_EQ(program.process().exitWithin(atOnce), 0);
    }
}

// The key that presses Close also hides it, while the key's character is still in the queue.
TEST(InterruptionTest, AKeyThatHidesItsOwnControlLeavesTheWindowUsable) {
    const Program program;
    for (const char* key : {"Return", "space"}) {
        SCOPED_TRACE(key);
        program.start("http://www.veoh.com/videos/v669398tRxFQc4d?");
        const std::string close = program.control(controlId("isButton1"));
        ASSERT_NO_THROW(program.awaitEndOfRun());
        InputSimulator().key("Tab").act();
        ASSERT_TRUE(eventually([&] {
            return driver().focus(program.window()) == driver().ask({"find", close});
        }));
        InputSimulator().key(key).act();
        driver().waitGone(program.control(controlId("outer")));
        for (const char* character : {"0x102", "0x106"}) {
            driver().ask({"post", close, character, "120", "0"});
            ASSERT_NO_THROW(driver().ping(program.window()));
        }
    }
}

}  // namespace
}  // namespace velvox::e2e
