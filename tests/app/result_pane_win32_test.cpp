#include "app/result_pane_win32.h"

#include <gtest/gtest.h>
#include <richedit.h>

#include <chrono>

#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

using namespace std::string_literals;

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using Addresses = std::vector<std::string>;

struct RecordingDesktop : Desktop {
    Addresses opened;

    void openAddress(std::string_view address) override { opened.emplace_back(address); }
    void yield() override {}
    void showExclamation(std::string_view) override {}
    std::string dateTimeText() const override { return {}; }
    std::unique_ptr<XmlHttpRequest> createXmlHttpRequest() override { return nullptr; }
    void endProgram() override {}
};

class TopWindow : public SystemControl {
 public:
    TopWindow() {
        WindowRequest request;
        request.className = L"STATIC";
        request.style = WS_POPUP | WS_VISIBLE;
        request.bounds = {0, 0, 320, 220};
        create(request);
    }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

std::string imageLines(int count) {
    std::string html;
    for (int i = 1; i <= count; ++i) {
        const std::string n = std::to_string(i);
        html += "<font face='tahoma' size='2'><a href='http://host/books/abc/p" + n +
                ".jpg'>Download Image " + n + "<a></font><br>";
    }
    return html;
}

template <class Pointed>
LPARAM at(Pointed& pointed) {
    return reinterpret_cast<LPARAM>(&pointed);
}

class ResultPaneTest : public testing::Test {
 protected:
    HWND text() const { return pane.textWindow(); }
    LRESULT send(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(text(), message, wParam, lParam);
    }

    std::string range(LONG begin, LONG end) const {
        std::wstring buffer(static_cast<std::size_t>(end - begin + 1), L'\0');
        TEXTRANGEW request{{begin, end}, buffer.data()};
        buffer.resize(static_cast<std::size_t>(send(EM_GETTEXTRANGE, 0, at(request))));
        std::string bytes = narrow(buffer);
        for (char& c : bytes)
            if (c == '\r') c = '\n';
        return bytes;
    }
    std::string textOf(const TextLink& link) const {
        return range(static_cast<LONG>(link.begin), static_cast<LONG>(link.end));
    }
    std::string shown() const {
        GETTEXTLENGTHEX request{GTL_NUMCHARS, 1200};
        return range(0, send(EM_GETTEXTLENGTHEX, static_cast<WPARAM>(at(request)), 0));
    }
    // Each link as "text>address", as the control itself has the text at the link's place.
    std::string shownLinks() const {
        std::string list;
        for (const TextLink& link : pane.links()) list += textOf(link) + '>' + link.address + '\n';
        return list;
    }
    void select(std::size_t begin, std::size_t end) const {
        CHARRANGE place{static_cast<LONG>(begin), static_cast<LONG>(end)};
        send(EM_EXSETSEL, 0, at(place));
    }
    void setCaret(std::size_t character) const { select(character, character); }
    bool isLink(std::size_t character) const {
        select(character, character + 1);
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        send(EM_GETCHARFORMAT, SCF_SELECTION, at(format));
        setCaret(0);
        return (format.dwEffects & CFE_LINK) != 0;
    }
    // A point inside a character.
    LPARAM pointAt(std::size_t character) const {
        POINTL place{};
        send(EM_POSFROMCHAR, static_cast<WPARAM>(at(place)), static_cast<LPARAM>(character));
        return MAKELPARAM(place.x + 2, place.y + 6);
    }
    void mouse(UINT message, LPARAM point, WPARAM keys = 0) const { send(message, keys, point); }
    void click(LPARAM point) const {
        mouse(WM_LBUTTONDOWN, point, MK_LBUTTON);
        mouse(WM_LBUTTONUP, point);
    }
    void key(WPARAM code) const { send(WM_KEYDOWN, code, 0); }
    void drain() const {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    std::string clipboard() const {
        if (!OpenClipboard(text())) return "closed";
        const HANDLE data = GetClipboardData(CF_UNICODETEXT);
        const auto* words = static_cast<const wchar_t*>(data ? GlobalLock(data) : nullptr);
        const std::string result = words ? narrow(words) : "none";
        if (words) GlobalUnlock(data);
        CloseClipboard();
        return result;
    }
    std::wstring paneText() const {
        const LRESULT size = SendMessageW(pane.handle(), WM_GETTEXTLENGTH, 0, 0);
        std::wstring buffer(static_cast<std::size_t>(size) + 1, L'?');
        const LRESULT got = SendMessageW(pane.handle(), WM_GETTEXT, buffer.size(),
                                         reinterpret_cast<LPARAM>(buffer.data()));
        EXPECT_EQ(buffer.back(), L'\0');
        buffer.resize(static_cast<std::size_t>(got));
        return buffer;
    }
    template <class Action>
    static double secondsOf(Action action) {
        const auto begin = Clock::now();
        action();
        return Seconds(Clock::now() - begin).count();
    }
    double secondsToShow(const std::string& html) {
        return secondsOf([&] { pane.DocumentHTML(html); });
    }

    TopWindow top;
    RecordingDesktop desktop;
    ResultPaneWindow pane{top.handle(), {10, 10, 300, 200}, 7, desktop};
};

TEST_F(ResultPaneTest, ShowsTextAndLinksAndKeepsTheHtmlAsWritten) {
    const struct {
        std::string html, text, links;
    } rows[] = {
        {"\r\n<br><font face='tahoma' size='2'><a href='http://h/1'>Download FLV</a>"
         "\r\n<br><font face='tahoma' size='2'><a href='http://h/2'>Download AVI</a>",
         "\nDownload FLV\nDownload AVI", "Download FLV>http://h/1\nDownload AVI>http://h/2\n"},
        {"plain \\b {text} \xC3\xA9 &#128512; <a href='http://h/\xC3\xA9'>l\xE9nk</a> end",
         "plain \\b {text} \xC3\xA9 \xF0\x9F\x98\x80 l\xC3\xA9nk end",
         "l\xC3\xA9nk>http://h/\xC3\xA9\n"},
        {imageLines(2), "Download Image 1\nDownload Image 2\n",
         "Download Image 1>http://host/books/abc/p1.jpg\n"
         "Download Image 2>http://host/books/abc/p2.jpg\n"},
        {"no link after one at the end", "no link after one at the end", ""},
        {"\xC3\xA9\xE9\r\n<\0x>"s, "\xC3\xA9\xC3\xA9 <x>", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.html);
        pane.DocumentHTML(row.html);
        EXPECT_EQ(shown(), row.text);
        EXPECT_EQ(shownLinks(), row.links);
        EXPECT_EQ(paneText(), widen(row.html));
        for (const TextLink& link : pane.links())
            EXPECT_TRUE(isLink(link.begin) && isLink(link.end - 1));
        EXPECT_EQ(isLink(0), row.text.starts_with("Download"));
    }
    EXPECT_FALSE(SetWindowTextW(pane.handle(), L"other"));
    EXPECT_EQ(paneText(), L"");
}

TEST_F(ResultPaneTest, IsPaintedOnReturn) {
    drain();
    const auto darkPixels = [&] {
        const WindowDc dc(text());
        int count = 0;
        for (int y = 5; y < 20; ++y)
            for (int x = 5; x < 120; ++x) count += GetRValue(GetPixel(dc.get(), x, y)) < 0x60;
        return count;
    };
    pane.DocumentHTML("");
    EXPECT_EQ(darkPixels(), 0);
    pane.DocumentHTML("<font face='tahoma' size='2'>Please wait...</font>");
    EXPECT_FALSE(GetUpdateRect(text(), nullptr, FALSE));
    EXPECT_FALSE(GetUpdateRect(pane.handle(), nullptr, FALSE));
    EXPECT_GT(darkPixels(), 30);
}

TEST_F(ResultPaneTest, AClickOpensTheLinkUnderIt) {
    pane.DocumentHTML(
        "text <a href='http://h/1'>Download FLV</a> and "
        "<a href='https://h/2'>Download MP4</a><br><a href='http://h/3'>Third</a>");
    const auto& links = pane.links();
    ASSERT_EQ(links.size(), 3U);
    for (const TextLink& link : links) {
        click(pointAt(link.begin));
        click(pointAt(link.end - 1));
    }
    EXPECT_EQ(desktop.opened, (Addresses{"http://h/1", "http://h/1", "https://h/2", "https://h/2",
                                         "http://h/3", "http://h/3"}));
    desktop.opened.clear();
    // Beside and below links, although the nearest character is one of them.
    click(pointAt(1));
    click(pointAt(links[0].end + 1));
    click(pointAt(links[2].begin) + MAKELPARAM(150, 0));
    click(pointAt(links[2].begin) + MAKELPARAM(0, 60));
    // Pressed on one, released on another, and a selection that ends where it began a word.
    mouse(WM_LBUTTONDOWN, pointAt(links[0].begin), MK_LBUTTON);
    mouse(WM_LBUTTONUP, pointAt(links[2].begin));
    mouse(WM_LBUTTONDOWN, pointAt(links[0].begin), MK_LBUTTON);
    mouse(WM_MOUSEMOVE, pointAt(links[0].begin + 5), MK_LBUTTON);
    mouse(WM_LBUTTONUP, pointAt(links[0].begin + 5));
    // One that went down on text that is gone.
    mouse(WM_LBUTTONDOWN, pointAt(links[0].begin), MK_LBUTTON);
    pane.DocumentHTML("<a href='http://h/other'>Another link</a>");
    mouse(WM_LBUTTONUP, pointAt(2));
    EXPECT_EQ(desktop.opened, Addresses{});
}

TEST_F(ResultPaneTest, OnlyWebAddressesAreOpened) {
    for (const char* address : {"javascript:alert(1)", "file:///c:/windows/notepad.exe",
                                "c:\\windows\\notepad.exe", "ftp://h/x", "notepad"}) {
        pane.DocumentHTML("<a href='"s + address + "'>Download</a>");
        click(pointAt(3));
        setCaret(3);
        key(VK_RETURN);
        send(WM_COMMAND, static_cast<WPARAM>(LinkCommand::Open), 0);
    }
    EXPECT_EQ(desktop.opened, Addresses{});
}

TEST_F(ResultPaneTest, KeysGoFromLinkToLinkAndEnterOpens) {
    pane.DocumentHTML(
        "<font size=2>Three links: <a href='http://h/1'>One</a> "
        "<a href='http://h/2'>Two</a><br>and <a href='http://h/3'>Three</a></font>");
    // Enter is the pane's own only while it opens something; Tab and Escape never are.
    const auto wants = [&](WPARAM code) {
        MSG message{};
        message.message = WM_KEYDOWN;
        message.wParam = code;
        return (send(WM_GETDLGCODE, code, at(message)) &
                (DLGC_WANTMESSAGE | DLGC_WANTTAB | DLGC_WANTALLKEYS)) != 0;
    };
    SetFocus(pane.handle());
    EXPECT_EQ(GetFocus(), text());
    EXPECT_FALSE(wants(VK_RETURN));
    key(VK_RETURN);
    std::string walk;
    for (const WPARAM code : {VK_DOWN, VK_DOWN, VK_DOWN, VK_UP, VK_UP}) {
        key(code);
        key(VK_RETURN);
        CHARRANGE place{};
        send(EM_EXGETSEL, 0, at(place));
        walk += range(place.cpMin, place.cpMax) + ' ';
    }
    EXPECT_EQ(walk, "One Two Three Two One ");
    EXPECT_EQ(desktop.opened,
              (Addresses{"http://h/1", "http://h/2", "http://h/3", "http://h/2", "http://h/1"}));
    EXPECT_TRUE(wants(VK_RETURN));
    EXPECT_FALSE(wants(VK_TAB) || wants(VK_ESCAPE));
}

TEST_F(ResultPaneTest, HoveringShowsTheAddressAndAHand) {
    pane.DocumentHTML("text <a href='http://h/address?a&b'>Download</a>");
    const auto tip = [&]() -> std::string {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr)
            if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() &&
                IsWindowVisible(window))
                return windowText(window);
        return "hidden";
    };
    const HCURSOR hand = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND));
    // Where the pointer goes, and what is shown of it at once and after a rest.
    for (const bool onLink : {false, true}) {
        const LPARAM point = pointAt(onLink ? 7 : 1);
        mouse(WM_MOUSEMOVE, point);
        EXPECT_EQ(GetCursor() == hand, onLink);
        EXPECT_EQ(tip(), "hidden");
        mouse(WM_MOUSEHOVER, point);
        EXPECT_EQ(tip(), onLink ? "http://h/address?a&b" : "hidden");
    }
    mouse(WM_MOUSEMOVE, pointAt(1));
    EXPECT_EQ(tip(), "hidden");
    mouse(WM_MOUSEHOVER, pointAt(7));
    pane.DocumentHTML("something else");
    EXPECT_EQ(tip(), "hidden");
}

TEST_F(ResultPaneTest, ContextMenuOpensAndCopies) {
    pane.DocumentHTML(
        "none here <a href='http://h/1'>One</a><br><a href='ftp://h/\xC3\xA9'>Two</a>");
    // The keys wait in the queue until the menu reads them.
    const auto choose = [&](std::size_t character, WPARAM letter, bool byKeyboard = false) {
        setCaret(byKeyboard ? character : 0);
        const LPARAM place = pointAt(character);
        POINT screen{LOWORD(place), HIWORD(place)};
        ClientToScreen(text(), &screen);
        PostMessageW(text(), WM_CHAR, letter, 0);
        PostMessageW(text(), WM_KEYDOWN, VK_ESCAPE, 0);  // closes it if the item was greyed
        send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(text()),
             byKeyboard ? -1 : MAKELPARAM(screen.x, screen.y));
        drain();
    };
    choose(11, 'O');
    choose(15, 'O');  // nothing to open by
    EXPECT_EQ(desktop.opened, Addresses{"http://h/1"});
    choose(11, 'C');
    EXPECT_EQ(clipboard(), "http://h/1");
    choose(15, 'C', true);
    EXPECT_EQ(clipboard(), "ftp://h/\xC3\xA9");
    choose(1, 'C');  // greyed: no link there
    EXPECT_EQ(clipboard(), "ftp://h/\xC3\xA9");
    choose(1, 'A');
    EXPECT_EQ(clipboard(), "http://h/1\r\nftp://h/\xC3\xA9\r\n");
}

TEST_F(ResultPaneTest, GarbageIsShownAndEndsSoon) {
    constexpr std::size_t size = 256 * 1024;
    std::string noise;
    for (unsigned seed = 1; noise.size() < size;) {
        seed = seed * 1103515245U + 12345U;
        noise += static_cast<char>(seed >> 16);
    }
    for (const std::string& html : {noise, std::string(size, '<'), std::string(size, '\0')}) {
        EXPECT_LT(secondsToShow(html), 15.0) << static_cast<int>(html[0]);
        EXPECT_EQ(paneText().size(), widen(html).size());
    }
    pane.DocumentHTML("fine again");
    EXPECT_EQ(shown(), "fine again");
}

struct Unread {
    std::string rtf;
    std::size_t at = 0;

    static DWORD CALLBACK read(DWORD_PTR self, LPBYTE buffer, LONG size, LONG* got) {
        auto& from = *reinterpret_cast<Unread*>(self);
        const std::size_t count =
            from.rtf.copy(reinterpret_cast<char*>(buffer), static_cast<std::size_t>(size), from.at);
        from.at += count;
        *got = static_cast<LONG>(count);
        return 0;
    }
};

// The bare control's own time for the same text is the measure: what a person waits for beyond it
// is ours.
TEST_F(ResultPaneTest, ManyLinksTakeLittleLongerThanTheBareControl) {
    constexpr int lines = 32767;
    const auto bare = [&] {
        Unread source{"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Tahoma;}}\\f0\\fs20 "};
        for (int i = 1; i <= lines; ++i)
            source.rtf += "Download Image " + std::to_string(i) + "\\par\n";
        source.rtf += '}';
        wchar_t name[32];
        GetClassNameW(text(), name, 32);
        const HWND control = CreateWindowExW(
            0, name, L"", WS_CHILD | WS_VISIBLE | WS_VSCROLL | ES_MULTILINE | ES_READONLY, 0, 0,
            280, 180, top.handle(), nullptr, nullptr, nullptr);
        SendMessageW(control, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
        SendMessageW(control, WM_SETREDRAW, FALSE, 0);
        EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, &Unread::read};
        const double taken =
            secondsOf([&] { SendMessageW(control, EM_STREAMIN, SF_RTF, at(stream)); });
        DestroyWindow(control);
        return taken;
    };
    const std::string html = imageLines(lines);
    // The fastest of several, taken in turn: other programs on the machine disturb both alike.
    double bareTime = 1e9;
    double ownTime = 1e9;
    for (int i = 0; i < 3; ++i) {
        bareTime = std::min(bareTime, bare());
        ownTime = std::min(ownTime, secondsToShow(html));
    }
    EXPECT_LT(ownTime, 1.5 * bareTime);

    ASSERT_EQ(pane.links().size(), static_cast<std::size_t>(lines));
    const TextLink last = pane.links().back();
    EXPECT_EQ(textOf(last), "Download Image 32767");
    EXPECT_TRUE(isLink(last.begin));
    setCaret(last.begin);
    send(EM_SCROLLCARET, 0, 0);
    click(pointAt(last.begin + 3));
    EXPECT_EQ(desktop.opened, Addresses{"http://host/books/abc/p32767.jpg"});
    EXPECT_LT(secondsToShow("gone"), 2.0);
}

// Blocks in use on the heap that the program shares with the system's controls.
int heapBlocks() {
    const HANDLE heap = GetProcessHeap();
    int count = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry)) count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    HeapUnlock(heap);
    return count;
}

TEST_F(ResultPaneTest, ManyWritesLeaveNothingBehind) {
    const std::string list = imageLines(210);  // enough for the control itself to be replaced
    pane.DocumentHTML(list);
    pane.DocumentHTML("x");
    const int blocksBefore = heapBlocks();
    const int before = liveHandles();
    for (int i = 0; i < 1000; ++i)
        pane.DocumentHTML(i % 50 == 0 ? list : "<a href='http://h/x'>Download</a><br>two");
    EXPECT_EQ(liveHandles(), before);
    EXPECT_LT(heapBlocks(), blocksBefore + 100);
    const HWND child = GetWindow(pane.handle(), GW_CHILD);
    EXPECT_EQ(child, text());
    EXPECT_EQ(GetWindow(child, GW_HWNDNEXT), nullptr) << "a replaced control is still there";
}

}  // namespace
}  // namespace velvox
