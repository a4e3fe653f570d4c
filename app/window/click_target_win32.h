#pragma once

#include <functional>

#include "base/window_win32.h"

namespace velvox {

/// An area around a small button that accepts clicks which just miss the button. It shows its
/// parent's background and takes no focus.
class ClickTarget : public Window {
 public:
    /// `pixels` are the bounds in the parent. The area is below the parent's other children in
    /// z-order.
    ClickTarget(HWND parent, const RECT& pixels, std::function<void()> click);
    ~ClickTarget() override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    std::function<void()> click_;
    bool pressed_ = false;
};

}  // namespace velvox
