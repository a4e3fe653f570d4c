// The result pane's window: its text, links, keys, pointer and menu.
#include "tests/app/pane/result_pane_fixture_win32.h"

namespace velvox::testing {
namespace {

using namespace std::string_literals;

TEST_F(ResultPaneTest, ShowsTextAndLinksAndKeepsTheHtmlAsWritten) {
    const struct {
        std::string html, text, links;
    } rows[] = {
        {"plain \\b {text} \xC3\xA9 &#128512; <a href='http://h/\xC3\xA9'>l\xE9nk</a> end",
         "plain \\b {text} \xC3\xA9 \xF0\x9F\x98\x80 l\xC3\xA9nk end",
         "l\xC3\xA9nk>http://h/\xC3\xA9\n"},
        {imageLines(1), "Download Image 1\n", "Download Image 1>http://host/books/abc/p1.jpg\n"},
        {"\xC3\xA9\xE9\r\n<\0x>"s, "\xC3\xA9\xC3\xA9 <x>", ""},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.html);
        pane.DocumentHTML(row.html);
        EXPECT_EQ(shown(), row.text);
        std::string links;
        for (const TextLink& link : pane.links()) {
            links += shownAt(link.begin, link.end) + '>' + link.address + '\n';
            EXPECT_TRUE(isLink(link.begin) && isLink(link.end - 1));
        }
        EXPECT_EQ(links, row.links);
        EXPECT_EQ(windowText(pane.handle()), narrow(widen(row.html)));
        EXPECT_EQ(isLink(0), row.text.starts_with("Download"));
    }
    EXPECT_FALSE(SetWindowTextW(pane.handle(), L"other"));
    EXPECT_EQ(windowText(pane.handle()), "");
}

TEST_F(ResultPaneTest, IsPaintedOnReturn) {
    pumpFor(20);
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
    EXPECT_GT(darkPixels(), 30);
    EXPECT_FALSE(GetUpdateRect(pane.handle(), nullptr, FALSE));
}

TEST_F(ResultPaneTest, LinksFollowTheSystemsColours) {
    constexpr int window = COLOR_WINDOW;
    const COLORREF usual = GetSysColor(window);
    // Measures painted pixels, because the control itself chooses the colour of its link format.
    const auto linkContrast = [&] {
        const auto background = static_cast<Rgb>(GetSysColor(window));
        const WindowDc dc(text());
        double most = 1;
        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 60; ++x) {
                const auto pixel = static_cast<Rgb>(GetPixel(dc.get(), x, y));
                most = std::max(most, contrast(pixel, background));
            }
        return most;
    };
    // The selection and the scroll position stay when the colours change.
    const auto view = [&] {
        CHARRANGE selected{};
        POINT scroll{};
        send(EM_EXGETSEL, 0, at(selected));
        send(EM_GETSCROLLPOS, 0, at(scroll));
        return std::vector<LONG>{selected.cpMin, selected.cpMax, scroll.y};
    };
    pane.DocumentHTML(imageLines(40));
    EXPECT_GE(linkContrast(), 4.5);
    const TextLink& link = pane.links()[20];
    select(link.begin, link.end);
    send(EM_SCROLLCARET, 0, 0);
    const auto before = view();
    EXPECT_GT(before[2], 0);
    const COLORREF dark = RGB(24, 32, 40);
    SetSysColors(1, &window, &dark);
    pane.systemColoursChanged();
    EXPECT_GE(linkContrast(), 4.5);
    EXPECT_EQ(view(), before);
    SetSysColors(1, &window, &usual);
    pane.systemColoursChanged();
    EXPECT_EQ(view(), before);
}

TEST_F(ResultPaneTest, AClickOpensTheLinkUnderIt) {
    pane.DocumentHTML(
        "text <a href='http://h/1'>Download FLV</a> and "
        "<a href='https://h/2'>Download MP4</a><br><a href='http://h/3'>Third</a>");
    const auto& links = pane.links();
    ASSERT_EQ(links.size(), 3U);
    std::string opened;
    for (const TextLink& link : links) {
        click(pointAt(link.begin));
        click(pointAt(link.end - 1));
        opened += "shell open " + link.address + "\nshell open " + link.address + '\n';
    }
    EXPECT_EQ(log.take(), opened);
    // None of the following opens a link. Clicks beside and below links, where the nearest
    // character still belongs to a link:
    const LPARAM third = pointAt(links[2].begin);
    for (const LPARAM point : {pointAt(1), pointAt(links[0].end + 1), third + MAKELPARAM(150, 0),
                               third + MAKELPARAM(0, 60)})
        click(point);
    // A press on one link with the release on another link, and a press that selects a part of a
    // link:
    press(pointAt(links[0].begin));
    release(third);
    press(pointAt(links[0].begin));
    send(WM_MOUSEMOVE, MK_LBUTTON, pointAt(links[0].begin + 5));
    release(pointAt(links[0].begin + 5));
    // A press on a link that is replaced before the release:
    press(pointAt(links[0].begin));
    pane.DocumentHTML("<a href='http://h/other'>Another link</a>");
    release(pointAt(2));
    // A click and a key press that were in the queue before the link appeared:
    post(WM_LBUTTONDOWN, MK_LBUTTON, pointAt(2));
    post(WM_LBUTTONUP, 0, pointAt(2));
    post(WM_KEYDOWN, VK_RETURN);
    Sleep(50);
    pane.DocumentHTML("<a href='http://h/late'>Late link</a>");
    pumpPosted();
    EXPECT_EQ(log.take(), "");
    click(pointAt(2));
    EXPECT_EQ(log.take(), "shell open http://h/late\n");
    EXPECT_FALSE(hasCaret());
}

// When Wine's rich-edit control itself selects a word on a double click, the next Right key reads
// beyond the text and ends the program.
TEST_F(ResultPaneTest, ADoubleClickSelectsALinkAndLeavesKeysUsable) {
    pane.DocumentHTML("plain<br><a href='http://h/1'>Download FLV</a>");
    SetFocus(pane.handle());
    const auto clickedAgain = [&](std::size_t character, UINT message) {
        const LPARAM point = pointAt(character);
        post(message, MK_LBUTTON, point);
        release(point);
        CHARRANGE place{};
        send(EM_EXGETSEL, 0, at(place));
        return shownAt(static_cast<std::size_t>(place.cpMin),
                       static_cast<std::size_t>(place.cpMax));
    };
    for (const std::size_t character : {16U, 2U}) {
        click(pointAt(character));
        EXPECT_EQ(clickedAgain(character, WM_LBUTTONDBLCLK), character == 16 ? "Download FLV" : "");
        key(VK_RIGHT);
        click(pointAt(character));
        EXPECT_EQ(clickedAgain(character, WM_LBUTTONDOWN), "");
        EXPECT_EQ(clickedAgain(character, WM_LBUTTONDOWN), "") << "the third click";
        key(VK_RIGHT);
    }
}

TEST_F(ResultPaneTest, KeysGoFromLinkToLinkAndEnterOpens) {
    pane.DocumentHTML(
        "<font size=2>Three links: <a href='http://h/1'>One</a> "
        "<a href='http://h/2'>Two</a><br>and <a href='http://h/3'>Three</a></font>");
    // The pane handles Enter only while Enter opens a link. It never handles Tab and Escape.
    const auto wants = [&](WPARAM code) {
        MSG message{};
        message.message = WM_KEYDOWN;
        message.wParam = code;
        return (send(WM_GETDLGCODE, code, at(message)) &
                (DLGC_WANTMESSAGE | DLGC_WANTTAB | DLGC_WANTALLKEYS)) != 0;
    };
    SetFocus(pane.handle());
    EXPECT_EQ(GetFocus(), text());
    EXPECT_FALSE(hasCaret());
    EXPECT_FALSE(wants(VK_RETURN));
    key(VK_RETURN);
    // The last and the first link stay selected.
    for (const WPARAM code : {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_UP, VK_UP, VK_UP}) {
        key(code);
        key(VK_RETURN);
        key(VK_RETURN, KF_REPEAT << 16);  // a held key opens once
        EXPECT_FALSE(hasCaret());
        CHARRANGE place{};
        send(EM_EXGETSEL, 0, at(place));
        log.add({shownAt(static_cast<std::size_t>(place.cpMin),
                         static_cast<std::size_t>(place.cpMax))});
    }
    const std::string one = "shell open http://h/1\nOne\n";
    const std::string two = "shell open http://h/2\nTwo\n";
    const std::string three = "shell open http://h/3\nThree\n";
    EXPECT_EQ(log.take(), one + two + three + three + two + one + one);
    EXPECT_TRUE(wants(VK_RETURN));
    EXPECT_FALSE(wants(VK_TAB) || wants(VK_ESCAPE));
}

TEST_F(ResultPaneTest, TheSelectedLinkIsHighlightedWhileThePaneHasTheFocus) {
    pane.DocumentHTML("<a href='http://h'>Link</a>");
    SetFocus(pane.handle());
    key(VK_DOWN);
    for (const bool focused : {true, false, true}) {
        SetFocus(focused ? pane.handle() : top.handle());
        UpdateWindow(text());
        const WindowDc dc(text());
        int highlighted = 0;
        for (int x = 0; x < 20; ++x)
            for (int y = 0; y < 20; ++y)
                highlighted += GetPixel(dc.get(), x, y) == GetSysColor(COLOR_HIGHLIGHT);
        EXPECT_EQ(highlighted > 0, focused);
    }
}

// The text of the visible tool tip of this thread.
std::string tip() {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr)
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() &&
            IsWindowVisible(window))
            return windowText(window);
    return "hidden";
}

TEST_F(ResultPaneTest, HoveringShowsTheAddressAndAHand) {
    pane.DocumentHTML("text <a href='http://h/address?a&b'>Download</a>");
    const HCURSOR hand = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND));
    // The cursor changes at once, the tool tip appears after the pointer has rested, and both only
    // on the link.
    for (const bool onLink : {false, true}) {
        const LPARAM point = pointAt(onLink ? 7 : 1);
        send(WM_MOUSEMOVE, 0, point);
        EXPECT_EQ(GetCursor() == hand, onLink);
        EXPECT_EQ(tip(), "hidden");
        send(WM_MOUSEHOVER, 0, point);
        EXPECT_EQ(tip(), onLink ? "http://h/address?a&b" : "hidden");
    }
    send(WM_MOUSEMOVE, 0, pointAt(1));
    EXPECT_EQ(tip(), "hidden");
    send(WM_MOUSEHOVER, 0, pointAt(7));
    pane.DocumentHTML("something else");
    EXPECT_EQ(tip(), "hidden");
    // No tip appears if the pane is hidden, or the menu opens, before WM_MOUSEHOVER is handled.
    pane.DocumentHTML("<a href='http://h/1'>One</a>");
    ShowWindow(pane.handle(), SW_HIDE);
    send(WM_MOUSEHOVER, 0, pointAt(1));
    EXPECT_EQ(tip(), "hidden");
    ShowWindow(pane.handle(), SW_SHOW);
    pane.DocumentHTML("<a href='http://h/1'>One</a>");
    PostMessageW(text(), WM_MOUSEHOVER, 0, pointAt(1));
    PostMessageW(text(), WM_KEYDOWN, VK_ESCAPE, 0);
    send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(text()), -1);
    EXPECT_EQ(tip(), "hidden");
}

TEST_F(ResultPaneTest, ContextMenuOpensAndCopies) {
    pane.DocumentHTML(
        "none here <a href='http://h/1'>One</a><br><a href='ftp://h'>Two</a> "
        "<a href='http://h/\xC3\xA9'>Three</a>");
    // The keys are posted first and wait in the queue until the menu reads them.
    const auto choose = [&](std::size_t character, WPARAM letter, bool byKeyboard = false) {
        setCaret(byKeyboard ? character : 0);
        const LPARAM place = pointAt(character);
        POINT screen{LOWORD(place), HIWORD(place)};
        ClientToScreen(text(), &screen);
        PostMessageW(text(), WM_CHAR, letter, 0);
        PostMessageW(text(), WM_KEYDOWN, VK_ESCAPE, 0);  // closes the menu if the item is disabled
        send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(text()),
             byKeyboard ? -1 : MAKELPARAM(screen.x, screen.y));
        pumpFor(20);
    };
    choose(11, 'O');
    choose(15, 'O');  // an address that cannot be opened
    EXPECT_EQ(log.take(), "shell open http://h/1\n");
    choose(11, 'C');
    EXPECT_EQ(clipboard(), "http://h/1");
    choose(1, 'A');
    EXPECT_EQ(clipboard(), "http://h/1\r\nhttp://h/\xC3\xA9\r\n");
    // Ctrl+C copies the addresses of the selected links, or the text if no link is selected.
    const auto copy = [&](std::size_t begin, std::size_t end) {
        select(begin, end);
        send(WM_COPY, 0, 0);
        return clipboard();
    };
    EXPECT_EQ(copy(8, 24), "http://h/1\r\nhttp://h/\xC3\xA9");
    EXPECT_EQ(copy(2, 7), "ne he");
    EXPECT_EQ(copy(12, 13), "http://h/1");
    EXPECT_EQ(copy(14, 17), "Two") << "an address that is not opened is not copied";
    EXPECT_EQ(copy(2, 2), "Two") << "nothing selected: the clipboard is kept";
    choose(19, 'C', true);
    EXPECT_EQ(clipboard(), "http://h/\xC3\xA9");
    // Only web addresses are opened or copied, even if the command comes without the menu.
    click(pointAt(15));
    key(VK_RETURN);
    choose(15, 'C', true);
    choose(1, 'C');  // no link there
    for (const LinkCommand command : {LinkCommand::Open, LinkCommand::CopyAddress})
        send(WM_COMMAND, static_cast<WPARAM>(command), 0);
    pane.DocumentHTML("<a href='ftp://h'>None</a>");
    choose(1, 'A');
    EXPECT_EQ(log.take(), "");
    EXPECT_EQ(clipboard(), "http://h/\xC3\xA9");
}

}  // namespace
}  // namespace velvox::testing
