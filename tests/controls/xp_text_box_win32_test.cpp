// The text box on the screen: what its EDIT does of what the model says, and the other way round.
#include "controls/xp_text_box_win32.h"

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
    int style() const { return GetWindowLongW(edit, GWL_STYLE); }

    TestForm form{{40, 40, 440, 240}};
    XPTextBox box{"linkin", twipsPerInch / screenDpi()};
    XPTextBoxWindow window{box, form.handle(), 7};
    HWND edit = window.editHandle();
};

constexpr const char* threeBytes = "\xE1\xBA\xBF";

TEST_F(XPTextBoxWindowTest, EditFollowsTheBox) {
    box.Alignment(2);
    EXPECT_EQ(style() & (ES_RIGHT | ES_CENTER), ES_CENTER);
    box.MaxLength(5);
    EXPECT_EQ(send(EM_GETLIMITTEXT), 5);
    for (const char* hidden : {"*", ""}) {
        box.PasswordChar(hidden);
        EXPECT_EQ(send(EM_GETPASSWORDCHAR), *hidden);
    }
    for (const bool on : {false, true}) {
        box.Enabled(on);
        EXPECT_EQ(IsWindowEnabled(edit) != 0, on);
        EXPECT_TRUE(IsWindowEnabled(window.handle()));
    }
    for (const bool on : {true, false}) {
        box.Locked(on);
        EXPECT_EQ((style() & ES_READONLY) != 0, on);
        EXPECT_NE(IsWindowEnabled(edit) != 0, on) << "a locked box disables what it stands in";
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
    EXPECT_EQ(box.SelStart(), 1);
    EXPECT_EQ(box.SelText(), threeBytes);
    box.SelText("b");
    EXPECT_EQ(windowText(edit), "ab");
    EXPECT_EQ(changes, 3);
    box.Text(threeBytes + std::string("xy"));
    EXPECT_EQ(windowText(edit), box.Text());
    EXPECT_EQ(changes, 4) << "once, whoever sets the text";
    box.SelStart(3);
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
        if (key == 'a') key = 'b';
        if (key == 'x') key = 0;
        if (key == 0x1EBF) key = 'e';
    };
    type(L"axc\x1EBF");
    EXPECT_EQ(box.Text(), "bce");

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
    send(WM_LBUTTONDOWN, MK_LBUTTON, at);
    send(WM_LBUTTONUP, 0, at);
    send(WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    EXPECT_EQ(events, "3 3 20 5 click double ");
}

TEST_F(XPTextBoxWindowTest, FrameIsOnePixelOnTheLastRowsAndColumns) {
    RECT client;
    GetClientRect(window.handle(), &client);
    const int right = client.right - 1;
    const int bottom = client.bottom - 1;
    const std::pair<Rgb, std::vector<std::pair<int, int>>> rows[] = {
        {rgb(127, 157, 185),
         {{0, 0}, {right, 0}, {0, bottom}, {right, bottom}, {9, 0}, {9, bottom}, {right, 9}}},
        {rgb(240, 232, 224), {{1, 1}, {2, 9}, {right - 1, 9}, {9, bottom - 2}}},
        {rgb(255, 255, 255), {{3, 3}, {right - 3, bottom - 3}}}};
    for (const bool enabled : {true, false}) {
        box.Enabled(enabled);
        const ClientPrint print(window.handle());
        for (const auto& [colour, points] : rows)
            for (const auto& [x, y] : points) EXPECT_EQ(print.at(x, y), colour) << x << ' ' << y;
    }
}

TEST_F(XPTextBoxWindowTest, ToolTipIsThereWhileItHasAText) {
    EXPECT_EQ(window.toolTip(), nullptr);
    box.ToolTipText("a && b");
    const HWND tip = window.toolTip();
    wchar_t shown[80]{};
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = window.handle();
    tool.uId = reinterpret_cast<UINT_PTR>(edit);
    tool.lpszText = shown;
    SendMessageW(tip, TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    EXPECT_EQ(narrow(shown), "a && b");
    box.Locked(true);
    EXPECT_EQ(window.toolTip(), tip) << "made anew for another text alone";
    box.ToolTipText("");
    EXPECT_EQ(window.toolTip(), nullptr);
    EXPECT_FALSE(IsWindow(tip));
}

}  // namespace
}  // namespace velvox
