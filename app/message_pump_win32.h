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

    /// True while a loop of the system's own handles what is waiting: `yield` then leaves it to
    /// that.
    std::function<bool()> elsewhere;

    /// Handles what is waiting, then returns. WM_QUIT is left for the loop outside.
    void yield();

    /// True inside `yield`: a handler further out is still at work.
    bool yielding() const noexcept { return depth_ > 0; }

 private:
    void dispatch(MSG& message);

    int depth_ = 0;
};

}  // namespace velvox
