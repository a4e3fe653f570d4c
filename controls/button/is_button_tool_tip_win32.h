// The push button's own tool tip, created again each time the pointer enters.
#pragma once

#include <windows.h>

#include "controls/button/is_button.h"

namespace velvox {

/// The system's side of a tool tip; tests record its calls.
class ToolTipSystem {
 public:
    virtual ~ToolTipSystem() = default;

    /// A top-most window of class "tooltips_class32"; null when the system refuses.
    virtual HWND create(DWORD style, HWND owner) = 0;
    virtual void send(HWND tip, UINT message, WPARAM wParam, LPARAM lParam) = 0;
    virtual void destroy(HWND tip) = 0;
};

ToolTipSystem& systemToolTips();

class ToolTip {
 public:
    explicit ToolTip(ToolTipSystem& system) : system_(system) {}
    ToolTip(const ToolTip&) = delete;
    ToolTip& operator=(const ToolTip&) = delete;
    ~ToolTip() { destroy(); }

    /// Replaces the tip that is there by one for the whole of `owner`.
    void show(const ButtonToolTip& record, HWND owner);
    void destroy();

    HWND handle() const noexcept { return window_; }

 private:
    ToolTipSystem& system_;
    HWND window_ = nullptr;
};

}  // namespace velvox
