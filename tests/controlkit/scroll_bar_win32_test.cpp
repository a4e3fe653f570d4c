// The bars as real windows: real messages, a real capture, real timers.
#include "controlkit/scroll_bar_win32.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/system_win32.h"

namespace velvox {
namespace {

/// Lets messages through until `done` or the deadline; answers whether it was done.
bool pumpUntil(const std::function<bool()>& done, DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (!done()) {
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

/// A popup that the bars stand on, and the pointer that plays on them.
class ScrollBarWindowTest : public testing::Test {
 protected:
    ScrollBarWindowTest()
        : parent_(CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 100,
                                  300, 300, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {
        vertical.create(parent_, {10, 10, 30, 210});
        horizontal.create(parent_, {40, 220, 240, 240});
        MouseInput(200, 100, 0);
        pumpUntil([] { return false; }, 20);
    }
    ~ScrollBarWindowTest() override {
        MouseInput(0, 0, MOUSEEVENTF_LEFTUP);
        pumpUntil([] { return false; }, 20);
        DestroyWindow(parent_);
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

    static LPARAM point(int x, int y) { return MAKELPARAM(x, y); }

    HWND parent_;
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
    ASSERT_TRUE(pumpUntil([&] { return vertical.held() == ScrollPart::None; }, 2000));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_GE(times[1] - times[0], 200U);
    // Lower bounds only: a busy machine may tick late, never early.
    const DWORD six = times[7] - times[1];
    EXPECT_GE(six, 6 * 50U - 30U);
    std::printf("[ MEASURED ] six repeats of 50 ms took %lu ms\n", six);
    const FixedPoint kept = vertical.Value();
    EXPECT_FALSE(pumpUntil([&] { return vertical.Value() != kept; }, 200)) << "nothing repeats on";
    Sleep(120);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, vertical.hWnd(), WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST_F(ScrollBarWindowTest, ADragReachesPastBothEnds) {
    MouseInput(140, 230, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(pumpUntil([&] { return horizontal.held() == ScrollPart::Thumb; }, 2000));
    MouseInput(290, 230, 0);
    EXPECT_TRUE(pumpUntil([&] { return horizontal.Value() == FixedPoint(100); }, 2000));
    MouseInput(-60, 250, 0);
    EXPECT_TRUE(pumpUntil([&] { return horizontal.Value() == FixedPoint(0); }, 2000));
    MouseInput(-60, 250, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(pumpUntil([&] { return horizontal.held() == ScrollPart::None; }, 2000));
    EXPECT_EQ(horizontal.touchOf(ScrollPart::Thumb), Touch::None);

    MouseInput(20, 110, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(pumpUntil([&] { return vertical.held() == ScrollPart::Thumb; }, 2000));
    MouseInput(20, -80, 0);
    EXPECT_TRUE(pumpUntil([&] { return vertical.Value() == FixedPoint(0); }, 2000));
    MouseInput(20, 290, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(pumpUntil([&] { return vertical.held() == ScrollPart::None; }, 2000));
}

TEST_F(ScrollBarWindowTest, HoverFollowsTheRealPointer) {
    std::string log;
    vertical.MouseHover = [&] { log += "hover "; };
    vertical.MouseLeave = [&] { log += "leave "; };
    MouseInput(20, 15, 0);
    EXPECT_TRUE(
        pumpUntil([&] { return vertical.touchOf(ScrollPart::LessArrow) == Touch::Hover; }, 2000));
    MouseInput(150, 50, 0);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover leave "; }, 3000)) << log;
    // Pressed, let go outside: one leave, and none left over for later.
    MouseInput(20, 16, MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(pumpUntil([&] { return vertical.held() != ScrollPart::None; }, 2000));
    MouseInput(151, 51, MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(pumpUntil([&] { return log == "hover leave hover leave "; }, 3000)) << log;
    EXPECT_FALSE(pumpUntil([&] { return log.size() > 24; }, 300)) << log;
}

TEST_F(ScrollBarWindowTest, CaptureTakenAwayAndDisablingEndThePress) {
    const HWND bar = vertical.hWnd();
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point(10, 4));
    ASSERT_EQ(GetCapture(), bar);
    SetCapture(horizontal.hWnd());
    EXPECT_EQ(vertical.held(), ScrollPart::None);
    FixedPoint kept = vertical.Value();
    EXPECT_FALSE(pumpUntil([&] { return vertical.Value() != kept; }, 400)) << "timers stopped";
    ReleaseCapture();

    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point(10, 4));
    ASSERT_EQ(GetFocus(), bar);
    vertical.Enabled(false);
    EXPECT_EQ(GetFocus(), horizontal.hWnd()) << "keys go on to the next stop";
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(bar));
    kept = vertical.Value();
    EXPECT_FALSE(pumpUntil([&] { return vertical.Value() != kept; }, 400));
    EnableWindow(bar, TRUE);
    EXPECT_TRUE(vertical.Enabled()) << "enabled from outside";

    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point(10, 4));
    ShowWindow(bar, SW_HIDE);
    EXPECT_EQ(vertical.held(), ScrollPart::None);
}

TEST_F(ScrollBarWindowTest, WheelKeysAndModifiersArrive) {
    std::vector<std::string> log;
    vertical.MouseWheel = [&](std::int16_t sens) { log.push_back(std::to_string(sens)); };
    vertical.MouseDown = [&](MouseButton button, std::int16_t shift, bool control) {
        log.push_back(std::to_string(static_cast<int>(button)) + std::to_string(shift) +
                      (control ? "c" : ""));
    };
    const HWND bar = vertical.hWnd();
    SendMessageW(bar, WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(vertical.Value(), FixedPoint(47));
    SendMessageW(bar, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(vertical.Value(), FixedPoint(50));
    SendMessageW(bar, WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(vertical.Value(), FixedPoint(50)) << "the other way's wheel";
    SendMessageW(horizontal.hWnd(), WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(horizontal.Value(), FixedPoint(53));
    SendMessageW(bar, WM_RBUTTONDOWN, MK_RBUTTON | MK_CONTROL | MK_SHIFT, point(10, 100));
    EXPECT_EQ(log, (std::vector<std::string>{"1", "-1", "23c"}));

    SetFocus(bar);
    EXPECT_TRUE(vertical.hasFocus());
    PostMessageW(bar, WM_KEYDOWN, VK_END, 0);
    EXPECT_TRUE(pumpUntil([&] { return vertical.Value() == FixedPoint(100); }, 1000));
    std::int16_t typed = 0;
    vertical.KeyPress = [&](std::int16_t& character) { typed = character; };
    PostMessageW(bar, WM_KEYDOWN, 'A', 0x001E0001);
    EXPECT_TRUE(pumpUntil([&] { return typed == 'a'; }, 1000));
    EXPECT_NE(SendMessageW(bar, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS, 0);
}

/// The bar as it would be printed.
class Print {
 public:
    explicit Print(const ScrollBarWindow& bar) {
        RECT client{};
        GetClientRect(bar.hWnd(), &client);
        surface_.CreateMyDC(client.right, client.bottom);
        SendMessageW(bar.hWnd(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface_.hDC()),
                     PRF_CLIENT);
    }
    Rgb at(int x, int y) const { return surface_.GetPixel(x, y); }

 private:
    clsVirtualDC surface_;
};

TEST_F(ScrollBarWindowTest, PartsShowTheirColours) {
    vertical.ArrowColor(rgb(1, 2, 3));
    vertical.BackColor(rgb(10, 20, 30));
    vertical.BorderColor(rgb(40, 50, 60));
    vertical.FrontColor(rgb(70, 80, 90));
    vertical.MouseHoverColor(rgb(100, 110, 120));
    vertical.DownColor(rgb(130, 140, 150));
    vertical.LargeChangeColor(rgb(160, 170, 180));
    vertical.ScrollHeight(MulDiv(20, 96, screenDpi()));
    horizontal.readProperties(vertical.writeProperties());
    EXPECT_EQ(horizontal.ScrollWidth(), 10) << "the other direction's key is not read";
    horizontal.ScrollWidth(vertical.ScrollHeight());

    // The two directions are one another's mirror image along the diagonal.
    const Print upright(vertical);
    const Print lying(horizontal);
    for (int along = 0; along < 200; ++along)
        for (int across = 0; across < 20; ++across)
            ASSERT_EQ(upright.at(across, along), lying.at(along, across)) << along << "," << across;

    const Span thumb = vertical.geometry().thumb();
    EXPECT_EQ(upright.at(0, 50), rgb(40, 50, 60));
    EXPECT_EQ(upright.at(3, 3), rgb(70, 80, 90)) << "arrow button";
    EXPECT_EQ(upright.at(9, 10), rgb(1, 2, 3)) << "arrow glyph";
    const auto glyphPixels = [&](int row) {
        int count = 0;
        for (int across = 0; across < 20; ++across)
            count += upright.at(across, row) == rgb(1, 2, 3);
        return count;
    };
    EXPECT_LT(glyphPixels(9), glyphPixels(10)) << "points upwards";
    EXPECT_GT(glyphPixels(189), glyphPixels(190)) << "points downwards";
    EXPECT_EQ(upright.at(9, 40), rgb(10, 20, 30)) << "track";
    EXPECT_EQ(upright.at(9, thumb.start + 1), rgb(70, 80, 90)) << "thumb";

    SendMessageW(vertical.hWnd(), WM_MOUSEMOVE, 0, point(9, thumb.start + 2));
    EXPECT_EQ(Print(vertical).at(9, thumb.start + 1), rgb(100, 110, 120));
    SendMessageW(vertical.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, point(9, thumb.start + 2));
    EXPECT_EQ(Print(vertical).at(3, thumb.start + thumb.length / 4), rgb(130, 140, 150));
    SendMessageW(vertical.hWnd(), WM_LBUTTONUP, 0, point(9, thumb.start + 2));
    SendMessageW(vertical.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, point(9, 22));
    EXPECT_EQ(Print(vertical).at(9, 30), rgb(160, 170, 180)) << "the held piece of the track";
    EXPECT_EQ(Print(vertical).at(9, 170), rgb(10, 20, 30));
    SendMessageW(vertical.hWnd(), WM_LBUTTONUP, 0, point(9, 22));

    vertical.Enabled(false);
    EXPECT_EQ(Print(vertical).at(3, 3), average(rgb(70, 80, 90), rgb(10, 20, 30)));
}

TEST_F(ScrollBarWindowTest, RefreshDrawsWhatWasHeldBack) {
    const auto pending = [&] { return GetUpdateRect(vertical.hWnd(), nullptr, FALSE) != 0; };
    vertical.UnRefreshControl(false);
    vertical.Refresh();
    EXPECT_FALSE(pending());
    EXPECT_NE(vertical.hDC(), nullptr);
    vertical.Value(90);
    EXPECT_FALSE(pending());
    const int old = vertical.geometry().thumb().start;
    vertical.FrontColor(rgb(9, 9, 9));
    vertical.Refresh();
    EXPECT_EQ(GetPixel(vertical.hDC(), 9, old + 1), static_cast<COLORREF>(rgb(9, 9, 9)));
    vertical.UnRefreshControl(true);
    EXPECT_TRUE(pending());
}

TEST_F(ScrollBarWindowTest, BarsOfAnySizeAreDrawn) {
    const int before = liveHandles();
    for (const ScrollBarWindow* bar :
         {static_cast<ScrollBarWindow*>(&vertical), static_cast<ScrollBarWindow*>(&horizontal)}) {
        for (const SIZE size :
             {SIZE{0, 0}, {1, 1}, {2, 3}, {5, 40}, {40, 5}, {17, 22}, {900, 900}}) {
            MoveWindow(bar->hWnd(), 0, 0, size.cx, size.cy, FALSE);
            const Print print(*bar);
            if (size.cx > 0) {
                EXPECT_NE(print.at(0, 0), -1) << size.cx;
            }
        }
    }
    EXPECT_LE(liveHandles(), before + 12) << "one surface each";
}

TEST_F(ScrollBarWindowTest, PaintTimes) {
    const auto perPaint = [](int count, const std::function<void()>& paint) {
        LARGE_INTEGER frequency, start, end;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&start);
        for (int i = 0; i < count; ++i) paint();
        QueryPerformanceCounter(&end);
        return 1e6 * static_cast<double>(end.QuadPart - start.QuadPart) /
               static_cast<double>(frequency.QuadPart) / count;
    };
    const double bar = perPaint(500, [&] { vertical.Refresh(); });
    MoveWindow(parent_, 0, 0, 800, 600, TRUE);
    clsVirtualDC surface;
    surface.CreateMyDC(800, 600);
    const WindowDc window(parent_);
    const double drawn = perPaint(50, [&] {
        surface.DrawGradient(rgb(255, 0, 0), rgb(0, 0, 255), 0, 0, 800, 600, 1);
        surface.FillArea({100, 100, 700, 500}, rgb(255, 255, 255));
        surface.DrawEllipse(100, 100, 700, 500);
    });
    const double copied = perPaint(50, [&] {
        surface.PaintToDC(window.get());
        GdiFlush();
    });
    std::printf(
        "[ MEASURED ] a bar of 20 x 200 takes %.0f us; a surface of 800 x 600 %.0f us to draw and "
        "%.0f us to copy\n",
        bar, drawn, copied);
    // Far above what is measured: only a mistake of another order is to fail here.
    EXPECT_LT(bar, 50000);
    EXPECT_LT(drawn + copied, 100000);
}

}  // namespace
}  // namespace velvox
