#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "app/window/input_filter.h"
#include "app/window/message_pump_win32.h"
#include "base/busy_pointer_win32.h"

namespace velvox {

/// Connects the input filter to the message pump: drops input that a run of Download does not let
/// through, and shows the busy pointer during the run.
class InputGate {
 public:
    using TargetOf = std::function<InputEvent::Target(HWND)>;

    InputGate(MessagePump& pump, TargetOf targetOf);
    InputGate(const InputGate&) = delete;
    InputGate& operator=(const InputGate&) = delete;
    ~InputGate();

    /// Calls the handler of Download. Inside another such call it does nothing, nor for a second
    /// click that the same message makes, as Space does when the last button was the left one.
    void run(const std::function<void()>& handler);
    bool running() const noexcept { return filter_.running(); }

    void controlsChanged() noexcept { filter_.controlsChanged(); }

    /// The window has been disabled under a message box, or enabled again. Input that came before
    /// the box is not meant for it.
    void windowEnabled(bool enabled);

 private:
    bool accepts(const MSG& message);

    MessagePump& pump_;
    TargetOf targetOf_;
    InputFilter filter_;
    unsigned lastStart_ = 0;  ///< the message that started a run
    std::optional<BusyPointer> pointer_;
};

}  // namespace velvox
