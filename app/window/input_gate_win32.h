#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "app/window/input_filter.h"
#include "app/window/message_pump_win32.h"
#include "base/busy_pointer_win32.h"

namespace velvox {

/// Connects the input filter to the message pump: drops input that the filter refuses during a run,
/// and shows the busy pointer during the run.
class InputGate {
 public:
    using TargetOf = std::function<InputEvent::Target(HWND)>;

    InputGate(MessagePump& pump, TargetOf targetOf);
    InputGate(const InputGate&) = delete;
    InputGate& operator=(const InputGate&) = delete;
    ~InputGate();

    /// Calls the handler of Download. Does nothing during a run, and for a second click from the
    /// same message: the button clicks twice for Space if the last mouse button used was the left
    /// one.
    void run(const std::function<void()>& handler);
    bool running() const noexcept { return filter_.running(); }

    void controlsChanged() noexcept { filter_.controlsChanged(); }

    /// Called when a message box has disabled or enabled the window. Input from before the box is
    /// dropped, because the user did not mean it for the box.
    void windowEnabled(bool enabled);

 private:
    bool accepts(const MSG& message);

    MessagePump& pump_;
    TargetOf targetOf_;
    InputFilter filter_;
    unsigned lastStart_ = 0;  ///< number of the message that started the last run
    std::optional<BusyPointer> pointer_;
};

}  // namespace velvox
