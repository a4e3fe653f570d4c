// The push button's tool tip, which is recreated each time the pointer enters the button.
#pragma once

#include <windows.h>

#include "controls/button/is_button.h"

namespace velvox {

/// The system calls that a tool tip needs. Tests replace and record them.
class ToolTipSystem {
 public:
    virtual ~ToolTipSystem() = default;

    /// Creates a top-most window of class "tooltips_class32". Returns null on failure.
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

    /// Replaces the current tool tip by one that covers the whole of `owner`.
    void show(const ButtonToolTip& record, HWND owner);
    void destroy();

    HWND handle() const noexcept { return window_; }

 private:
    ToolTipSystem& system_;
    HWND window_ = nullptr;
};

}  // namespace velvox
