// The bars as real windows: real messages, a real capture, real timers.
#include "controlkit/scroll_bar_win32.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

/// A popup that the bars stand on, and the pointer that plays on them.
class ScrollBarWindowTest : public testing::Test {
 protected:
    ScrollBarWindowTest() {
        vertical.create(form.handle(), {10, 10, 30, 210});
        horizontal.create(form.handle(), {40, 220, 240, 240});
        MouseInput(200, 100, 0);
        pumpUntil([] { return false; }, 20);
    }
    ~ScrollBarWindowTest() override {
        MouseInput(0, 0, MOUSEEVENTF_LEFTUP);
        pumpUntil([] { return false; }, 20);
    }

    /// Moves the system's pointer to a point of the popup, then presses or lets go.
    static void MouseInput(int x, int y, DWORD buttons) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = MulDiv(100 + x, 65536, GetSystemMetrics(SM_CXSCREEN)) + 1;
        input.mi.dy = MulDiv(100 + y, 65536, GetSystemMetrics(SM_CYSCREEN)) + 1;
        input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
        SendInput(1, &input, sizeof input);
        if (!buttons) return;
        input.mi.dwFlags = buttons;
        SendInput(1, &input, sizeof input);
    }
    static LRESULT send(const ScrollBarWindow& bar, UINT message, WPARAM w = 0, LPARAM l = 0) {
        return SendMessageW(bar.hWnd(), message, w, l);
    }
    void press(int x, int y) { send(vertical, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y)); }
    bool reachesHeld(ScrollPart part) {
        return pumpUntil([&] { return vertical.held() == part || horizontal.held() == part; },
                         2000);
    }
    bool released() {
        return pumpUntil(
            [&] {
                return vertical.held() == ScrollPart::None && horizontal.held() == ScrollPart::None;
            },
            2000);
    }
    bool staysStill(DWORD milliseconds) {
        const FixedPoint kept = vertical.Value();
        return !pumpUntil([&] { return vertical.Value() != kept; }, milliseconds);
    }
    static bool reaches(const ScrollBarWindow& bar, int value) {
        return pumpUntil([&] { return bar.Value() == FixedPoint(value); }, 2000);
    }

    TestForm form{{100, 100, 400, 400}};
    tsVScrollPrivate vertical;
    tsHScrollPrivate horizontal;
};

TEST_F(ScrollBarWindowTest, AHeldArrowRepeatsAtItsInterval) {
    std::vector<DWORD> times;
    vertical.Scroll = [&] { times.push_back(GetTickCount()); };
    vertical.MouseInterval(50);
    MouseInput(20, 205, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(pumpUntil([&] { return times.size() >= 8; }, 4000));
    EXPECT_EQ(GetCapture(), vertical.hWnd());
    MouseInput(20, 205, MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(released());
    EXPECT_EQ(GetCapture(), nullptr);
    // Lower bounds only: a busy machine may tick late, never early.
    EXPECT_GE(times[1] - times[0], 200U);
    EXPECT_GE(times[7] - times[1], 6 * 50U - 30U);
    EXPECT_TRUE(staysStill(200)) << "nothing repeats on";
}

TEST_F(ScrollBarWindowTest, ADragReachesPastBothEnds) {
    MouseInput(140, 230, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(reachesHeld(ScrollPart::Thumb));
    MouseInput(290, 230, 0);
    EXPECT_TRUE(reaches(horizontal, 100));
    MouseInput(-60, 250, 0);
    EXPECT_TRUE(reaches(horizontal, 0));
    MouseInput(-60, 250, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(released());
    EXPECT_EQ(horizontal.touchOf(ScrollPart::Thumb), Touch::None);

    MouseInput(20, 110, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(reachesHeld(ScrollPart::Thumb));
    MouseInput(20, -80, 0);
    EXPECT_TRUE(reaches(vertical, 0));
    MouseInput(20, 290, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(released());
}

TEST_F(ScrollBarWindowTest, HoverFollowsTheRealPointer) {
    std::string log;
    vertical.MouseHover = [&] { log += "hover "; };
    vertical.MouseLeave = [&] { log += "leave "; };
    MouseInput(20, 15, 0);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover "; }, 2000));
    MouseInput(150, 50, 0);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover leave "; }, 3000)) << log;
    // Pressed, let go outside: one leave, and none left over for later.
    MouseInput(20, 16, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(reachesHeld(ScrollPart::LessArrow));
    MouseInput(151, 51, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover leave hover leave "; }, 3000)) << log;
    EXPECT_FALSE(pumpUntil([&] { return log.size() > 24; }, 300)) << log;
}

TEST_F(ScrollBarWindowTest, CaptureTakenAwayAndDisablingEndThePress) {
    press(10, 4);
    ASSERT_EQ(GetCapture(), vertical.hWnd());
    SetCapture(horizontal.hWnd());
    EXPECT_EQ(vertical.held(), ScrollPart::None);
    EXPECT_TRUE(staysStill(400)) << "timers stopped";
    ReleaseCapture();

    press(10, 4);
    ASSERT_EQ(GetFocus(), vertical.hWnd());
    vertical.Enabled(false);
    EXPECT_EQ(GetFocus(), horizontal.hWnd()) << "keys go on to the next stop";
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(vertical.hWnd()));
    EXPECT_TRUE(staysStill(400));
    EnableWindow(vertical.hWnd(), TRUE);
    EXPECT_TRUE(vertical.Enabled()) << "enabled from outside";

    press(10, 4);
    ShowWindow(vertical.hWnd(), SW_HIDE);
    EXPECT_EQ(vertical.held(), ScrollPart::None);
}

TEST_F(ScrollBarWindowTest, WheelKeysAndModifiersArrive) {
    send(vertical, WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(vertical.Value(), FixedPoint(47));
    send(vertical, WM_MOUSEHWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(vertical.Value(), FixedPoint(47)) << "the other way's wheel";
    send(horizontal, WM_MOUSEHWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(horizontal.Value(), FixedPoint(53));
    std::string log;
    vertical.MouseDown = [&](MouseButton button, std::int16_t shift, bool control) {
        log =
            std::to_string(static_cast<int>(button)) + std::to_string(shift) + (control ? "c" : "");
    };
    send(vertical, WM_RBUTTONDOWN, MK_RBUTTON | MK_CONTROL | MK_SHIFT, MAKELPARAM(10, 100));
    EXPECT_EQ(log, "23c");

    SetFocus(vertical.hWnd());
    PostMessageW(vertical.hWnd(), WM_KEYDOWN, VK_END, 0);
    EXPECT_TRUE(reaches(vertical, 100));
    std::int16_t typed = 0;
    vertical.KeyPress = [&](std::int16_t& character) { typed = character; };
    PostMessageW(vertical.hWnd(), WM_KEYDOWN, 'A', 0x001E0001);
    EXPECT_TRUE(pumpUntil([&] { return typed == 'a'; }, 1000));
    EXPECT_NE(send(vertical, WM_GETDLGCODE) & DLGC_WANTARROWS, 0);
}

TEST_F(ScrollBarWindowTest, PartsShowTheirColours) {
    const Rgb arrow = rgb(1, 2, 3);
    const Rgb track = rgb(10, 20, 30);
    const Rgb front = rgb(70, 80, 90);
    vertical.ArrowColor(arrow), vertical.BackColor(track), vertical.BorderColor(4);
    vertical.FrontColor(front), vertical.DownColor(6), vertical.LargeChangeColor(7);
    vertical.ScrollHeight(MulDiv(20, 96, screenDpi()));
    horizontal.readProperties(vertical.writeProperties());
    EXPECT_EQ(horizontal.ScrollWidth(), 10) << "the other direction's key is not read";
    horizontal.ScrollWidth(vertical.ScrollHeight());

    // The two directions are one another's mirror image along the diagonal.
    const ClientPrint upright(vertical.hWnd());
    const ClientPrint lying(horizontal.hWnd());
    for (int along = 0; along < 200; ++along)
        for (int across = 0; across < 20; ++across)
            ASSERT_EQ(upright.at(across, along), lying.at(along, across)) << along << "," << across;

    const int thumb = vertical.geometry().thumb().start;
    EXPECT_EQ(upright.at(0, 50), 4) << "border";
    EXPECT_EQ(upright.at(3, 3), front) << "arrow button";
    EXPECT_EQ(upright.at(9, 40), track);
    EXPECT_EQ(upright.at(9, thumb + 1), front);
    const auto glyphPixels = [&](int row) {
        int count = 0;
        for (int across = 0; across < 20; ++across) count += upright.at(across, row) == arrow;
        return count;
    };
    EXPECT_LT(glyphPixels(9), glyphPixels(10)) << "points upwards";
    EXPECT_GT(glyphPixels(189), glyphPixels(190)) << "points downwards";

    press(9, thumb + 2);
    EXPECT_EQ(ClientPrint(vertical.hWnd()).at(3, thumb + 3), 6);
    send(vertical, WM_LBUTTONUP, 0, MAKELPARAM(9, thumb + 2));
    press(9, 22);
    const ClientPrint held(vertical.hWnd());
    EXPECT_EQ(held.at(9, 30), 7) << "the held piece of the track";
    EXPECT_EQ(held.at(9, 170), track);
    vertical.Enabled(false);
    EXPECT_EQ(ClientPrint(vertical.hWnd()).at(3, 3), average(front, track));
}

TEST_F(ScrollBarWindowTest, RefreshDrawsWhatWasHeldBack) {
    const auto pending = [&] { return GetUpdateRect(vertical.hWnd(), nullptr, FALSE) != 0; };
    vertical.UnRefreshControl(false);
    vertical.Refresh();
    vertical.Value(90);
    EXPECT_FALSE(pending());
    const int old = vertical.geometry().thumb().start;
    vertical.FrontColor(rgb(9, 9, 9));
    vertical.Refresh();
    EXPECT_EQ(GetPixel(vertical.hDC(), 9, old + 1), static_cast<COLORREF>(rgb(9, 9, 9)));
    vertical.UnRefreshControl(true);
    EXPECT_TRUE(pending());

    const int before = liveHandles();
    for (const SIZE size : {SIZE{0, 0}, {1, 1}, {2, 3}, {5, 40}, {40, 5}, {17, 22}, {900, 900}}) {
        MoveWindow(vertical.hWnd(), 0, 0, size.cx, size.cy, FALSE);
        EXPECT_TRUE(ClientPrint(vertical.hWnd()).at(0, 0) != -1 || size.cx == 0) << size.cx;
    }
    EXPECT_LE(liveHandles(), before + 6) << "one surface";
}

}  // namespace
}  // namespace velvox
