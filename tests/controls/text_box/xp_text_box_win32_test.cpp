// The text box on the screen: what its EDIT does of what the model says, and the other way round.
#include "controls/text_box/xp_text_box_win32.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

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
    bool has(int style) const { return (GetWindowLongW(edit, GWL_STYLE) & style) != 0; }

    TestForm form{{40, 40, 440, 240}};
    XPTextBox box{"linkin", twipsPerInch / screenDpi()};
    XPTextBoxWindow window{box, form.handle(), 7};
    HWND edit = window.editHandle();
};

constexpr const char* threeBytes = "\xE1\xBA\xBF";

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
        EXPECT_EQ(has(WS_DISABLED), on) << "a locked box disables what it stands in";
    }
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
    // Places are bytes here and UTF-16 units there.
    send(EM_SETSEL, 1, 2);
    EXPECT_EQ(box.SelText(), threeBytes);
    box.Text(threeBytes + std::string("xy"));
    EXPECT_EQ(windowText(edit), box.Text());
    EXPECT_EQ(changes, 3) << "once, whoever sets the text";
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
    send(WM_MOUSEMOVE, MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL, at);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK})
        send(message, 0, at);
    EXPECT_EQ(events, "3 3 20 5 click double ");
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
    EXPECT_EQ(window.toolTip(), tip) << "made anew for another text alone";
    box.ToolTipText("");
    EXPECT_EQ(window.toolTip(), nullptr);
    EXPECT_FALSE(IsWindow(tip));
}

}  // namespace
}  // namespace velvox
