// User input during a run of Download, in a real main window.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "app/form1/form1_design.h"
#include "app/pane/result_pane_win32.h"
#include "app/window/form1_win32.h"
#include "tests/support/local_server_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

constexpr UINT pointerAsked = WM_APP;

/// Reports the cursor of its thread to another thread.
class PointerProbe : public TestForm {
 public:
    PointerProbe() : TestForm({0, 0, 1, 1}) {}

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        if (message != pointerAsked) return std::nullopt;
        return reinterpret_cast<LRESULT>(GetCursor());
    }
};

/// The keys, clicks and moves that have reached a window of countInputOf().
int inputs = 0;

LRESULT CALLBACK countInput(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR, DWORD_PTR) {
    const bool key = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    const bool mouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    inputs += key || mouse;
    return DefSubclassProc(window, message, w, l);
}

BOOL CALLBACK countInputOf(HWND window, LPARAM) {
    return SetWindowSubclass(window, &countInput, 77, 0);
}

class InputGateTest : public ::testing::Test {
 protected:
    using Act = std::function<void()>;

    InputGateTest() {
        window.show();
        pump.yield();
    }

    HWND control(ControlId id) const {
        HWND found = nullptr;
        for (const HWND parent :
             {window.handle(), GetDlgItem(window.handle(), static_cast<int>(controlId("outer"))),
              GetDlgItem(window.handle(), static_cast<int>(controlId("topendskin")))})
            if (!found) found = GetDlgItem(parent, static_cast<int>(id));
        return found;
    }
    HWND edit() const { return GetWindow(control(controlId("linkin")), GW_CHILD); }
    HWND paneText() const { return GetWindow(control(controlId("output")), GW_CHILD); }

    /// Runs Download. The server replies after `act`, which another thread performs.
    void run(Act act) {
        act_ = std::move(act);
        window.form().linkin.Text(server.address("/youtube.com/watch?v=a"));
        window.form().UniXPButton1.activate();
    }

    static void post(HWND to, UINT message, WPARAM w = 0, LPARAM l = 0) {
        PostMessageW(to, message, w, l);
    }
    static void key(HWND to, WPARAM code) {
        post(to, WM_KEYDOWN, code, 1);
        post(to, WM_CHAR, code, 1);
        post(to, WM_KEYUP, code, static_cast<LPARAM>(0xC0000001));
    }
    static void click(HWND on) {
        for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
                                   WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_MOUSEWHEEL})
            post(on, message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(5, 5));
    }

    OleScope ole;
    LocalServer server{[this](const Connection& to, const std::string&) {
        ++requests;
        if (act_) std::exchange(act_, {})();
        to.write(LocalServer::reply("nothing"));
    }};
    MessagePump pump;
    Form1Window window{pump, {}};
    std::atomic<int> requests{0};

 private:
    Act act_;
};

// Sends Enter and Space to all controls, a second press of Download, Escape, and clicks on the
// disabled Close and into the pane.
TEST_F(InputGateTest, WhatComesDuringARunReachesNoControl) {
    window.form().ShowStatus("");  // creates the pane's control
    countInputOf(window.handle(), 0);
    EnumChildWindows(window.handle(), &countInputOf, 0);
    inputs = 0;
    const std::vector<HWND> targets = {edit(),
                                       paneText(),
                                       control(controlId("isButton1")),
                                       control(controlId("UniXPButton1")),
                                       control(controlId("vd")),
                                       control(controlId("ds"))};
    const auto takesDrops = [&] { return GetPropW(window.handle(), L"OleDropTargetInterface"); };
    run([&] {
        EXPECT_FALSE(takesDrops()) << "a program that drags over the window would wait";
        for (const HWND target : targets) {
            for (const WPARAM code : {VK_RETURN, VK_SPACE, VK_ESCAPE, VK_TAB, VK_DOWN})
                key(target, code);
            click(target);
        }
        SendMessageW(control(controlId("UniXPButton1")), BM_CLICK, 0, 0);
        post(control(controlId("UniXPButton1")), BM_CLICK);
    });
    pump.yield();
    EXPECT_EQ(inputs, 0);
    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(window.form().outer.Visible());
    EXPECT_TRUE(window.form().isButton1.Enabled());
    // After the run, input reaches the controls again.
    EXPECT_TRUE(takesDrops());
    key(paneText(), VK_DOWN);
    pump.yield();
    EXPECT_GT(inputs, 0);
    key(paneText(), VK_ESCAPE);
    pump.yield();
    EXPECT_FALSE(window.form().outer.Visible());
}

// If the last mouse button used was the left one, Space clicks twice. Only one of the two clicks
// starts a run.
TEST_F(InputGateTest, SpaceOnDownloadStartsOneRun) {
    window.form().linkin.Text(server.address("/youtube.com/watch?v=a"));
    window.form().UniXPButton1.mouseUp(MouseButton::Left);
    for (int stroke = 1; stroke <= 2; ++stroke) {
        post(control(controlId("UniXPButton1")), WM_CHAR, VK_SPACE, 1);
        pump.yield();
        EXPECT_EQ(requests, stroke);
        window.form().isButton1.activate();
    }
}

TEST_F(InputGateTest, TheBusyPointerIsShownDuringARun) {
    const HCURSOR busy = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_WAIT));
    const PointerProbe probe;
    RECT area;
    GetWindowRect(control(controlId("UniXPButton1")), &area);
    SetCursorPos((area.left + area.right) / 2, (area.top + area.bottom) / 2);
    pump.yield();
    const auto pointer = [&] {
        return reinterpret_cast<HCURSOR>(SendMessageW(probe.handle(), pointerAsked, 0, 0));
    };
    const std::vector<HWND> places = {window.handle(), paneText(), control(controlId("Label5")),
                                      control(controlId("isButton1")), control(controlId("web"))};
    EXPECT_NE(pointer(), busy);
    run([&] {
        EXPECT_EQ(pointer(), busy) << "the pointer stands still";
        for (const HWND place : places) {
            SendMessageW(place, WM_SETCURSOR, reinterpret_cast<WPARAM>(place),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
            EXPECT_EQ(pointer(), busy) << windowText(place);
        }
    });
    EXPECT_NE(pointer(), busy);
}

// In Wine a minimised window gets keys, but its menu would be invisible.
TEST_F(InputGateTest, AMinimisedWindowOpensNoMenu) {
    static bool opened;
    opened = false;
    struct Loop {
        static void CALLBACK tick(HWND owner, UINT, UINT_PTR, DWORD) {
            opened = true;
            PostMessageW(owner, WM_CANCELMODE, 0, 0);
        }
    };
    ShowWindow(window.handle(), SW_MINIMIZE);
    SetTimer(window.handle(), 1000, 10, &Loop::tick);
    SendMessageW(window.handle(), WM_SYSCOMMAND, SC_KEYMENU, L' ');
    KillTimer(window.handle(), 1000);
    EXPECT_FALSE(opened);
}

TEST_F(InputGateTest, ARestoredWindowReturnsTheFocus) {
    const HWND download = control(controlId("UniXPButton1"));
    const TestForm other({0, 0, 10, 10});
    SetFocus(download);
    // A message box that closes while the window is minimised makes the minimised window active.
    for (const bool boxCloses : {false, true}) {
        SendMessageW(window.handle(), WM_SYSCOMMAND, SC_MINIMIZE, 0);
        if (boxCloses) {
            SetActiveWindow(other.handle());
            SetActiveWindow(window.handle());
        }
        pump.yield();
        SendMessageW(window.handle(), WM_SYSCOMMAND, SC_RESTORE, 0);
        pump.yield();
        EXPECT_EQ(GetFocus(), download) << boxCloses;
    }
}

}  // namespace
}  // namespace velvox
