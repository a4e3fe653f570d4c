// The message loop and what runs inside it.
#include "app/window/message_pump_win32.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

constexpr UINT typed = WM_APP;
constexpr UINT failing = WM_APP + 1;

// A WM_TIMER message yields once in its tick.
class TickingWindow : public TestForm {
 public:
    explicit TickingWindow(MessagePump& pump) : TestForm({0, 0, 100, 100}), pump_(pump) {}
    std::string log;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        if (message == typed) log += "typed ";
        if (message == WM_TIMER) {
            pump_.tick([this] {
                log += "tick ";
                pump_.yield();
                log += "end ";
            });
        }
        return std::nullopt;
    }
    MessagePump& pump_;
};

// A yield in a tick would take messages from a modal loop of the system that dispatches the tick.
TEST(MessagePumpTest, ATickDoesNotYield) {
    MessagePump pump;
    TickingWindow window(pump);
    PostMessageW(window.handle(), WM_TIMER, 1, 0);
    PostMessageW(window.handle(), typed, 0, 0);
    pump.yield();
    EXPECT_EQ(window.log, "tick end typed ");
    PostMessageW(window.handle(), typed, 0, 0);
    pump.yield();
    EXPECT_EQ(window.log, "tick end typed typed ") << "yields again after the tick";
}

// An exception from `intercept` is reported like one from a window's message handler, and the loop
// continues.
TEST(MessagePumpTest, AnExceptionOutOfAHookIsReported) {
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    MessagePump pump;
    TickingWindow window(pump);
    pump.intercept = [](MSG& message) {
        if (message.message == failing) throw std::runtime_error("the hook failed");
        return false;
    };
    PostMessageW(window.handle(), failing, 0, 0);
    PostMessageW(window.handle(), typed, 0, 0);
    PostQuitMessage(7);
    EXPECT_EQ(pump.run(), 7);
    setFailureReporter({});
    EXPECT_EQ(reported, "the hook failed");
    EXPECT_EQ(window.log, "typed ");
}

// A window with a system menu. It can stay invalid however often it is painted.
class HostileWindow : public TestForm {
 public:
    HostileWindow() : TestForm({0, 0, 100, 100}) {
        SetWindowLongW(handle(), GWL_STYLE, WS_POPUP | WS_VISIBLE | WS_SYSMENU);
        GetSystemMenu(handle(), FALSE);  // creates the menu
        SetForegroundWindow(handle());
    }
    bool staysInvalid = false;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        if (message == WM_PAINT && staysInvalid) return 0;
        return std::nullopt;
    }
};

// If the pump did not end these modal loops of the system, the run of Download could not continue.
TEST(MessagePumpTest, ARunComesBackFromAnyLoopOfTheSystem) {
    MessagePump pump;
    HostileWindow window;
    const struct {
        const char* name;
        WPARAM command;
        LPARAM key;
    } loops[] = {
        {"menu", SC_KEYMENU, L' '}, {"menu bar", SC_KEYMENU, 0}, {"move by keys", SC_MOVE, 0}};
    for (const auto& loop : loops) {
        SCOPED_TRACE(loop.name);
        int asked = 0;
        PostMessageW(window.handle(), WM_SYSCOMMAND, loop.command, loop.key);
        pump.serveInput([&] { return ++asked == 3; });
        EXPECT_GT(asked, 0);  // a move by keys ends by itself under Wine 10
        PostMessageW(window.handle(), WM_SYSCOMMAND, loop.command, loop.key);
        pump.setRunning(true);
        pump.yield();
        EXPECT_EQ(GetCapture(), nullptr);
    }
    window.staysInvalid = true;
    InvalidateRect(window.handle(), nullptr, FALSE);
    pump.serveInput();
    pump.yield();
}

}  // namespace
}  // namespace velvox
