#pragma once

#include <windows.h>

#include <functional>

namespace velvox {

/// The program's message loop, and the nested message loops in which a long run yields. Exceptions
/// from `accepts` and `intercept` are reported, and the loop continues.
class MessagePump {
 public:
    /// Called first for each message. Returns false to drop the message.
    std::function<bool(const MSG&)> accepts;

    /// Called for each accepted message before it is dispatched. Returns true if the message is
    /// handled.
    std::function<bool(MSG&)> intercept;

    /// Runs the message loop until `quit` is called. Returns the exit code.
    int run();

    /// Ends `run`, even from inside a modal loop of the system that removes WM_QUIT.
    void quit(int exitCode);

    /// Handles all messages in the queue, then returns. Does nothing inside `serveInput` or `tick`.
    void yield();

    /// During a run, a modal loop of the system that starts inside `yield` is soon ended.
    void setRunning(bool running) { running_ = running; }

    /// Handles queued input, system commands, close requests and painting, then returns. All other
    /// messages stay in the queue, as if the thread were blocked. If a modal loop of the system,
    /// such as that of an open menu, keeps this function from returning, `isOver` is called every
    /// 100 ms. Once `isOver` returns true, the modal loop is ended.
    void serveInput(const std::function<bool()>& isOver = [] { return true; });

    /// Runs the handler of a WM_TIMER message. A yield in the handler does nothing, because the
    /// loop that dispatched the message handles the pending messages next. If that loop is a modal
    /// one of the system, such as a menu's or a message box's, a yield would also take the keys and
    /// clicks meant for it and give them to the window below.
    void tick(const std::function<void()>& handler);

    /// Number of the message that is being dispatched; 0 if there is none.
    unsigned currentMessage() const noexcept { return currentMessage_; }

 private:
    void dispatch(MSG& message);

    unsigned currentMessage_ = 0;
    unsigned messages_ = 0;
    bool mayYield_ = true;  ///< false inside serveInput and tick
    bool running_ = false;
    bool quitting_ = false;
    int exitCode_ = 0;
};

}  // namespace velvox
