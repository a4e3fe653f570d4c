#pragma once

#include <windows.h>

#include <functional>

namespace velvox {

/// The program's message loop, and the loops inside it that a long run yields to. An exception out
/// of the hooks is reported; the loops go on.
class MessagePump {
 public:
    /// Sees each message first; false when it is to be dropped.
    std::function<bool(const MSG&)> accepts;

    /// Sees each accepted message before it is dispatched; true when it has handled it.
    std::function<bool(MSG&)> intercept;

    /// Runs until `quit` and returns its exit code.
    int run();

    /// Ends `run`, also from inside a loop of the system's that swallows the quit message.
    void quit(int exitCode);

    /// Handles all waiting messages, then returns. Inside `serveInput` it does nothing.
    void yield();

    /// While a run is under way, a loop of the system's that starts in `yield` is soon ended.
    void setRunning(bool running) { running_ = running; }

    /// Handles waiting input, system commands, closing and painting, then returns. All other
    /// messages stay in the queue, as if the thread were blocked. While a loop of the system's,
    /// such as that of an open menu, keeps this from returning, `isOver` is called every 100 ms;
    /// once it returns true that loop is ended.
    void serveInput(const std::function<bool()>& isOver = [] { return true; });

    /// Runs the handler of a timer's message. A menu, a message box or a scroll bar that is held
    /// has a loop of its own, which lets timers tick as well: a yield in such a tick does nothing,
    /// since it would take away the keys and clicks meant for that loop and give them to the window
    /// below.
    void tick(const std::function<void()>& handler);

    /// Number of the message that is being dispatched, 0 outside of any.
    unsigned currentMessage() const noexcept { return currentMessage_; }

 private:
    void dispatch(MSG& message);

    unsigned currentMessage_ = 0;
    unsigned messages_ = 0;
    bool ownTimer_ = false;  ///< this pump's message to a timer is being dispatched
    bool inForeignTick_ = false;
    bool serving_ = false;
    bool running_ = false;
    bool quitting_ = false;
    int exitCode_ = 0;
};

}  // namespace velvox
