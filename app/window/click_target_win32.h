#pragma once

#include <functional>

#include "base/window_win32.h"

namespace velvox {

/// A larger click target below a small button, for clicks that miss it by a little. It
/// shows its parent's background and takes no focus.
class ClickTarget : public Window {
 public:
    /// `pixels` are the bounds in the parent, below all its other children.
    ClickTarget(HWND parent, const RECT& pixels, std::function<void()> click);
    ~ClickTarget() override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    std::function<void()> click_;
    bool pressed_ = false;
};

}  // namespace velvox
