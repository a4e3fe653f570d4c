// The system services that the push button's window uses: pointer tracking, tool tip and theme.
#include <gtest/gtest.h>

#include "tests/controls/button/is_button_window_fixture_win32.h"

namespace velvox {
namespace {

TEST_F(IsButtonWindowTest, TrackingTakesTheFirstEntryPointThereIs) {
    leaveRequests = 0;
    open();
    run("enter enter");
    EXPECT_EQ(leaveRequests, 1);
    EXPECT_EQ(procedures.asked, std::vector<std::string>{"User32.TrackMouseEvent"});
    procedures.present.erase("User32.TrackMouseEvent");
    open();
    EXPECT_EQ(model->tracking(), Tracking::CommonControls);
    procedures.present.clear();
    makeModel();
    open();
    EXPECT_EQ(procedures.asked.back(), "Comctl32._TrackMouseEvent");
    // Without tracking, a toggle button does not stay pressed when a press ends outside it.
    takeEvents();
    run("enter toggle press release-off");
    EXPECT_EQ(events, "");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

TEST_F(IsButtonWindowTest, ToolTipsAreCreatedOnEachEntry) {
    model->ToolTip("tip");
    open();
    run("enter leave");
    model->ToolTipType(1), model->ToolTipTitle("title"), model->ToolTipIcon(2);
    model->ToolTipBackColor(0x112233), model->ToolTipForeColor(0x445566);
    const std::string added = "1028 0 flags 16 tip " + std::to_string(client().cx) + 'x' +
                              std::to_string(client().cy) + ';';
    run("enter");
    window.reset();
    EXPECT_EQ(tips.log.str(), "create 3;" + added + "destroy;create 67;" + added +
                                  "1056 2 title;1044 4478310;1043 1122867;destroy;");

    // A real tool tip is topmost and is destroyed with the button.
    const int before = liveHandles();
    model->pointerLeft();
    window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                              ButtonServices{procedures, themes});
    model->pointerMoved();
    const HWND tip = window->toolTip();
    EXPECT_NE(GetWindowLongW(tip, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTIPBKCOLOR, 0, 0), 0x112233);
    DestroyWindow(window->handle());
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(liveHandles(), before);
}

TEST_F(IsButtonWindowTest, RefusedThemesFallBackOnceAndForAll) {
    model->Style(6);
    model->NonThemeStyle(10);
    open();
    run("focus");
    UpdateWindow(window->handle());
    EXPECT_EQ(model->Style(), 10);
    model->Refresh();
    EXPECT_EQ(themes.asked, 1);
    EXPECT_EQ(themes.lastState, 5) << "focused";
    EXPECT_FALSE(regionHolds(2, 2));
    // If the fallback is the theme style itself, there is no endless loop.
    model->NonThemeStyle(6);
    model->Style(6);
    EXPECT_EQ(model->Style(), 6);
}

std::string aboutBox;

void CALLBACK __attribute__((force_align_arg_pointer)) closeAbout(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = GetActiveWindow();
    const HWND close = box ? GetDlgItem(box, IDCANCEL) : nullptr;
    if (!close) return;
    aboutBox = windowText(box) + "|" + windowText(GetTopWindow(box)) + "|" + windowText(close);
    SendMessageW(close, BM_CLICK, 0, 0);
}

TEST_F(IsButtonWindowTest, AboutShowsTheVersionUntilItIsClosed) {
    open();
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, &closeAbout);
    model->About();
    KillTimer(nullptr, timer);
    EXPECT_EQ(aboutBox, "About isButton 3.0|Version 3.0|Close");
}

}  // namespace
}  // namespace velvox
