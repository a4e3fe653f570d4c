// The bars as real windows, with real messages, a real capture and real timers.
#include "controlkit/scroll_bar_win32.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

/// Two bars on a popup window, and the system's pointer.
class ScrollBarWindowTest : public testing::Test {
 protected:
    ScrollBarWindowTest() {
        vertical.create(form.handle(), {10, 10, 30, 210});
        horizontal.create(form.handle(), {40, 220, 240, 240});
        pointer(200, 100, MOUSEEVENTF_LEFTUP);
        pumpUntil([] { return false; }, 20);
    }

    /// Moves the system's pointer to a point of the popup, then presses or releases a button.
    static void pointer(int x, int y, DWORD buttons = 0) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = MulDiv(100 + x, 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
        input.mi.dy = MulDiv(100 + y, 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
        input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | buttons;
        SendInput(1, &input, sizeof input);
    }
    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) {
        return SendMessageW(vertical.hWnd(), message, w, l);
    }
    void press(int x, int y) { send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    static bool reaches(const ScrollBarWindow& bar, int value) {
        return pumpUntil([&] { return bar.Value() == FixedPoint(value); });
    }
    static bool reaches(const ScrollBarWindow& bar, ScrollPart held) {
        return pumpUntil([&] { return bar.held() == held; });
    }
    Rgb printed(int x, int y) { return ClientPrint(vertical.hWnd()).at(x, y); }

    TestForm form{{100, 100, 400, 400}};
    tsVScrollPrivate vertical;
    tsHScrollPrivate horizontal;
};

TEST_F(ScrollBarWindowTest, AHeldArrowRepeatsAtItsInterval) {
    std::vector<DWORD> times;
    vertical.Scroll = [&] { times.push_back(GetTickCount()); };
    vertical.MouseInterval(50);
    pointer(20, 205, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(pumpUntil([&] { return times.size() >= 8; }));
    pointer(20, 205, MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(reaches(vertical, ScrollPart::None));
    EXPECT_EQ(GetCapture(), nullptr);
    // Only minimum times are checked: a busy machine may tick late, never early.
    EXPECT_GE(times[1] - times[0], 200U);
    EXPECT_GE(times[7] - times[1], 6 * 50U - 30U);
}

TEST_F(ScrollBarWindowTest, ADragReachesPastBothEnds) {
    pointer(140, 230, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(reaches(horizontal, ScrollPart::Thumb));
    pointer(290, 230);
    EXPECT_TRUE(reaches(horizontal, 100));
    pointer(-60, 250, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(reaches(horizontal, ScrollPart::None));
    EXPECT_EQ(horizontal.Value(), FixedPoint(0));
}

TEST_F(ScrollBarWindowTest, HoverFollowsTheRealPointer) {
    std::string log;
    vertical.MouseHover = [&] { log += "hover "; };
    vertical.MouseLeave = [&] { log += "leave "; };
    pointer(20, 15);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover "; }));
    pointer(150, 50);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover leave "; })) << log;
}

TEST_F(ScrollBarWindowTest, CaptureTakenAwayDisablingAndHidingEndThePress) {
    press(10, 4);
    ASSERT_EQ(GetCapture(), vertical.hWnd());
    SetCapture(horizontal.hWnd());
    EXPECT_EQ(vertical.held(), ScrollPart::None);
    EXPECT_FALSE(pumpUntil([&] { return vertical.Value() != FixedPoint(49); }, 400)) << "timers";

    press(10, 4);
    vertical.Enabled(false);
    EXPECT_EQ(GetFocus(), horizontal.hWnd()) << "keys go on to the next stop";
    EXPECT_FALSE(IsWindowEnabled(vertical.hWnd()));
    EnableWindow(vertical.hWnd(), TRUE);
    EXPECT_TRUE(vertical.Enabled()) << "enabled from outside";

    for (const bool hides : {true, false}) {
        press(10, 4);
        ASSERT_EQ(vertical.held(), ScrollPart::LessArrow);
        hides ? ShowWindow(form.handle(), SW_HIDE) : EnableWindow(form.handle(), FALSE);
        EXPECT_EQ(vertical.held(), ScrollPart::None) << "its parent is out of use";
        EXPECT_EQ(GetCapture(), nullptr);
        hides ? ShowWindow(form.handle(), SW_SHOW) : EnableWindow(form.handle(), TRUE);
    }
}

TEST_F(ScrollBarWindowTest, WheelKeysAndModifiersArrive) {
    send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    send(WM_MOUSEHWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(vertical.Value(), FixedPoint(47)) << "without the other way's wheel";
    SendMessageW(horizontal.hWnd(), WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(horizontal.Value(), FixedPoint(53));
    std::string log;
    const auto noting = [&](const char* name) {
        return [&log, name](auto... numbers) {
            log += name;
            ((log += std::to_string(static_cast<int>(numbers))), ...);
        };
    };
    vertical.MouseDown = noting("down");
    vertical.MouseDblClick = noting("double");
    vertical.KeyPress = noting("key");
    send(WM_RBUTTONDOWN, MK_RBUTTON | MK_CONTROL | MK_SHIFT, MAKELPARAM(10, 100));
    send(WM_MBUTTONDBLCLK, MK_MBUTTON, MAKELPARAM(10, 100));
    PostMessageW(vertical.hWnd(), WM_KEYDOWN, 'A', 0x001E0001);
    PostMessageW(vertical.hWnd(), WM_KEYDOWN, VK_END, 0);
    EXPECT_TRUE(reaches(vertical, 100));
    EXPECT_EQ(std::exchange(log, {}), "down231double400key97");
    vertical.KeyDown = noting("down");
    vertical.KeyUp = noting("up");
    const auto strike = [](WORD key, DWORD flags = 0) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    };
    SetForegroundWindow(form.handle());
    SetFocus(vertical.hWnd());
    strike(VK_MENU);
    strike(VK_HOME);
    strike(VK_HOME, KEYEVENTF_KEYUP), strike(VK_MENU, KEYEVENTF_KEYUP);
    strike(VK_F10), strike(VK_F10, KEYEVENTF_KEYUP);
    const std::string keys = "down184down364up364up180down1210up1210";
    EXPECT_TRUE(pumpUntil([&] { return log == keys; })) << log;
    EXPECT_EQ(vertical.Value(), FixedPoint(100)) << "a key with Alt is the system's";
    EXPECT_NE(send(WM_GETDLGCODE) & DLGC_WANTARROWS, 0);
}

TEST_F(ScrollBarWindowTest, PartsShowTheirColours) {
    const Rgb arrow = rgb(1, 2, 3);
    const Rgb track = rgb(10, 20, 30);
    const Rgb front = rgb(70, 80, 90);
    const PropertyBag colours{{"ArrowColor", arrow}, {"BackColor", track}, {"BorderColor", 4},
                              {"FrontColor", front}, {"DownColor", 6},     {"LargeChangeColor", 7}};
    vertical.ReadProperties(colours);
    horizontal.ReadProperties(colours);
    vertical.ScrollHeight(MulDiv(20, 96, screenDpi()));
    horizontal.ScrollWidth(vertical.ScrollHeight());

    // The bars of both directions are mirror images along the diagonal.
    const ClientPrint upright(vertical.hWnd());
    const ClientPrint lying(horizontal.hWnd());
    for (int i = 0; i < 200 * 20; ++i)
        ASSERT_EQ(upright.at(i % 20, i / 20), lying.at(i / 20, i % 20)) << i;

    const int thumb = vertical.geometry().thumb().start;
    EXPECT_EQ(upright.at(0, 50), 4) << "border";
    EXPECT_EQ(upright.at(3, 3), front) << "arrow button";
    EXPECT_EQ(upright.at(9, 40), track);
    EXPECT_EQ(upright.at(9, thumb + 1), front);
    for (const int base : {11, 188}) EXPECT_EQ(upright.at(7, base), arrow) << base;
    for (const int tip : {8, 191}) EXPECT_EQ(upright.at(7, tip), front) << tip;

    press(9, thumb + 2);
    const int beforeFocusMark = scaled(scrollSizes.border, screenDpi());
    EXPECT_EQ(printed(beforeFocusMark, thumb + 3), 6);
    send(WM_LBUTTONUP, 0, MAKELPARAM(9, thumb + 2));
    press(9, 22);
    EXPECT_EQ(printed(9, 30), 7) << "the held piece of the track";
    EXPECT_EQ(printed(9, 170), track);
}

TEST_F(ScrollBarWindowTest, RefreshDrawsWhatWasHeldBack) {
    const auto pending = [&] { return GetUpdateRect(vertical.hWnd(), nullptr, FALSE) != 0; };
    vertical.UnRefreshControl(false);
    vertical.Refresh();
    vertical.FrontColor(rgb(9, 9, 9));
    EXPECT_FALSE(pending());
    vertical.Refresh();
    EXPECT_EQ(GetPixel(vertical.hDC(), 9, vertical.geometry().thumb().start + 1), 0x090909U);
    const int thumb = vertical.geometry().thumb().start;
    for (int notch = 0; notch < 10; ++notch) send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120));
    EXPECT_TRUE(pending()) << "a new value is always drawn";
    EXPECT_GT(vertical.geometry().thumb().start, thumb);
    vertical.Refresh();
    vertical.UnRefreshControl(true);
    EXPECT_TRUE(pending());
}

TEST_F(ScrollBarWindowTest, EverySizeIsDrawnAndLeavesNoHandles) {
    const int before = liveHandles();
    for (const int arrow : {10, 0})
        for (const SIZE size :
             {SIZE{0, 0}, {1, 1}, {2, 3}, {5, 40}, {40, 5}, {17, 22}, {300, 300}}) {
            vertical.ScrollHeight(arrow);
            MoveWindow(vertical.hWnd(), 0, 0, size.cx, size.cy, FALSE);
            const ClientPrint print(vertical.hWnd());
            for (int i = 0; i < size.cx * size.cy; ++i) {
                const int x = i % size.cx, y = i / size.cx;
                const bool inside = x > 0 && y > 0 && x < size.cx - 1 && y < size.cy - 1;
                ASSERT_TRUE(inside || print.at(x, y) == rgb(128, 128, 255)) << size.cx << ' ' << i;
            }
        }
    EXPECT_LE(liveHandles(), before + 6);
    vertical.ArrowColor(rgb(0, 0, 0));
    for (int arrow = 6; arrow < 24; ++arrow) {
        vertical.ScrollHeight(arrow);
        MoveWindow(vertical.hWnd(), 0, 0, 16 + arrow % 2, 200, FALSE);
        const ClientPrint print(vertical.hWnd());
        for (int x = 0; x < 16; ++x)
            for (int y = 0; y < vertical.geometry().lessArrow().length; ++y)
                ASSERT_EQ(print.at(x, y), print.at(x, 199 - y)) << "arrows are mirrored, " << arrow;
    }
}

}  // namespace
}  // namespace velvox
