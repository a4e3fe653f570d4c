// The text box on the screen: the model's changes reach the EDIT, and the EDIT's changes the model.
#include "controls/text_box/xp_text_box_win32.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "base/clipboard_win32.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

class XPTextBoxWindowTest : public testing::Test {
 protected:
    XPTextBoxWindowTest() { box.Move({150, 150, 3000, 375}); }

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(edit, message, wParam, lParam);
    }
    void type(std::wstring_view characters) const {
        for (const wchar_t c : characters) send(WM_CHAR, c);
    }
    COLORREF textColour() const {
        const WindowDc dc(edit);
        SendMessageW(window.handle(), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.get()),
                     reinterpret_cast<LPARAM>(edit));
        return GetTextColor(dc.get());
    }
    bool has(int style) const { return (GetWindowLongW(edit, GWL_STYLE) & style) != 0; }

    TestForm form{{40, 40, 440, 240}};
    XPTextBox box{"linkin", twipsPerInch / screenDpi()};
    CurrentSystemColours colours;
    XPTextBoxWindow window{box, form.handle(), 7, colours};
    HWND edit = window.editHandle();
};

constexpr const char* threeBytes = "\xE1\xBA\xBF";
constexpr const char* fourBytes = "\xF0\x9F\x98\x80";

TEST_F(XPTextBoxWindowTest, EditFollowsTheBox) {
    box.Alignment(2);
    EXPECT_TRUE(has(ES_CENTER) && !has(ES_RIGHT));
    box.MaxLength(5);
    EXPECT_EQ(send(EM_GETLIMITTEXT), 5);
    for (const char* hidden : {"*", ""}) {
        box.PasswordChar(hidden);
        EXPECT_EQ(send(EM_GETPASSWORDCHAR), *hidden);
    }
    for (const bool on : {true, false}) {
        box.Locked(on);
        EXPECT_EQ(has(ES_READONLY), on);
        EXPECT_FALSE(has(WS_DISABLED));
    }
    box.Locked(true);
    EXPECT_EQ(textColour(), GetSysColor(COLOR_WINDOWTEXT)) << "not grey";
    box.Height(400);
    EXPECT_FALSE(has(ES_READONLY) || has(WS_DISABLED)) << "as the box is after a resize";

    for (const bool on : {false, true}) {
        box.Enabled(on);
        EXPECT_EQ(has(WS_DISABLED), !on);
        EXPECT_TRUE(IsWindowEnabled(window.handle()));
    }
}

TEST_F(XPTextBoxWindowTest, TypingAndSelectingReachTheBox) {
    int changes = 0;
    box.Change = [&] { ++changes; };
    type(L"a\x1EBF");
    EXPECT_EQ(box.Text(), std::string("a") + threeBytes);
    EXPECT_EQ(changes, 2);
    // The model counts bytes, the EDIT counts UTF-16 units.
    send(EM_SETSEL, 1, 2);
    EXPECT_EQ(box.SelText(), threeBytes);
    box.Text(threeBytes + std::string("xy"));
    EXPECT_EQ(windowText(edit), box.Text());
    EXPECT_EQ(changes, 3) << "once, by either side";
    send(EM_SETSEL, 1, 2);
    EXPECT_EQ(box.SelStart(), 3);
    box.SelLength(1);
    EXPECT_EQ(send(EM_GETSEL), MAKELRESULT(1, 2));

    SetFocus(window.handle());
    EXPECT_EQ(GetFocus(), edit);
    SetFocus(form.handle());
    box.Focus();
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(send(EM_GETSEL), MAKELRESULT(0, 3));
}

TEST_F(XPTextBoxWindowTest, LimitCountsCharactersHoweverTheyAreEntered) {
    const std::string two = threeBytes + std::string(fourBytes);
    box.MaxLength(2);
    int changes = 0;
    box.Change = [&] { ++changes; };
    type(L"\x1EBF\xD83D\xDE00\xD83D\xDE00x");
    EXPECT_EQ(box.Text(), two);
    EXPECT_EQ(changes, 2) << "half a character is no text";
    box.Text("xyz");
    send(EM_SETSEL, 1, 2);
    type(L"\xD83D\xDE00");
    EXPECT_EQ(box.Text(), std::string("x") + fourBytes);

    copyToClipboard(form.handle(), fourBytes + std::string(threeBytes) + "z\r\nline");
    const std::string pasted = fourBytes + std::string(threeBytes) + "z";
    for (const auto& [limit, bytes] : {std::pair{1, 4}, {2, 7}, {9, 8}, {0, 8}}) {
        box.MaxLength(limit);
        box.Focus();
        send(WM_PASTE);
        EXPECT_EQ(box.Text(), pasted.substr(0, static_cast<std::size_t>(bytes))) << limit;
    }
    const std::string many(40'000, 'x');
    copyToClipboard(form.handle(), many);
    box.MaxLength(50'000);
    box.Focus();
    send(WM_PASTE);
    EXPECT_EQ(box.Text().size(), many.size());
}

TEST_F(XPTextBoxWindowTest, HandlersHearOfKeysAndThePointer) {
    box.KeyPress = [](std::int16_t& key) {
        if (key == 'x') key = 0;
        if (key == 0x1EBF) key = 'e';
    };
    type(L"axc\x1EBF");
    EXPECT_EQ(box.Text(), "ace");

    std::string events;
    box.Click = [&] { events += "click "; };
    box.DblClick = [&] { events += "double "; };
    box.MouseMove = [&](int button, int shift, float x, float y) {
        for (const int number : {button, shift, toPixels(static_cast<int>(x), screenDpi()),
                                 toPixels(static_cast<int>(y), screenDpi())})
            events += std::to_string(number) + ' ';
    };
    const LPARAM at = MAKELPARAM(20, 5);
    const LPARAM outside = MAKELPARAM(20, -5);
    send(WM_MOUSEMOVE, MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL, at);
    EXPECT_EQ(std::exchange(events, ""), "3 3 20 5 ");
    box.MouseMove = {};
    const std::tuple<const char*, LPARAM, LPARAM, const char*> rows[] = {
        {"a press and a release", at, at, "click "},
        {"dragged out", at, outside, ""},
        {"dragged in", outside, at, ""}};
    for (const auto& [name, press, release, raised] : rows) {
        send(press == at ? WM_LBUTTONDOWN : WM_NULL, 0, press);
        send(WM_LBUTTONUP, 0, release);
        EXPECT_EQ(std::exchange(events, ""), raised) << name;
    }
    for (const HWND container : {form.handle(), window.handle()}) {
        send(WM_LBUTTONDOWN, 0, at);
        EnableWindow(container, FALSE);
        EnableWindow(container, TRUE);
        send(WM_LBUTTONUP, 0, at);
        EXPECT_EQ(std::exchange(events, ""), "") << "out of use meanwhile";
    }
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
        send(message, 0, at);
    EXPECT_EQ(events, "click double ");
}

TEST_F(XPTextBoxWindowTest, FrameIsOnePixelOnTheLastRowsAndColumns) {
    RECT client;
    GetClientRect(window.handle(), &client);
    const int right = client.right - 1;
    const int bottom = client.bottom - 1;
    for (const bool enabled : {true, false}) {
        box.Enabled(enabled);
        const ClientPrint print(window.handle());
        for (const auto& [x, y] : {std::pair{0, 0}, {right, 9}, {9, bottom}})
            EXPECT_EQ(print.at(x, y), rgb(127, 157, 185)) << x << ' ' << y;
        EXPECT_EQ(print.at(right - 1, bottom - 1), rgb(240, 232, 224));
        EXPECT_EQ(print.at(right - 3, bottom - 3), 0xFFFFFF);
    }
}

TEST_F(XPTextBoxWindowTest, ToolTipIsThereWhileItHasAText) {
    EXPECT_EQ(window.toolTip(), nullptr);
    box.ToolTipText("tip");
    const HWND tip = window.toolTip();
    EXPECT_EQ(SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
    box.Locked(true);
    EXPECT_EQ(window.toolTip(), tip) << "made again for another text alone";
    box.ToolTipText("");
    EXPECT_EQ(window.toolTip(), nullptr);
    EXPECT_FALSE(IsWindow(tip));
}

}  // namespace
}  // namespace velvox
