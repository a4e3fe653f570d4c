#pragma once

#include <windows.h>

#include <functional>

namespace velvox {

/// The program's message loop, and the loop inside it that a long run yields to.
class MessagePump {
 public:
    /// Sees each message before it is dispatched; true when it has taken it.
    std::function<bool(MSG&)> intercept;

    /// Runs until WM_QUIT and answers its exit code.
    int run();

    /// Handles what is waiting, then returns. WM_QUIT is left for the loop outside.
    void yield();

    /// Runs the handler of a timer's message. A menu, a message box or a scroll bar that is held
    /// has a loop of its own, which lets timers tick as well: a yield in such a tick does nothing,
    /// since it would take away the keys and clicks meant for that loop and give them to the window
    /// below.
    void tick(const std::function<void()>& handler);

    /// True inside `yield`: a handler further out is still at work.
    bool yielding() const noexcept { return depth_ > 0; }

 private:
    void dispatch(MSG& message);

    int depth_ = 0;
    bool ownTimer_ = false;  ///< this pump's message to a timer is on its way
    bool inForeignTick_ = false;
};

}  // namespace velvox
