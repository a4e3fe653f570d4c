#pragma once

#include <windows.h>

#include <functional>

namespace velvox {

/// Observes the keyboard focus of this thread. The system itself notifies only the two windows that
/// lose and get the focus.
class FocusWatch {
 public:
    /// Invokes `moving` when a window of this thread is about to get the focus. The callback may
    /// destroy the watch.
    explicit FocusWatch(std::function<void(HWND)> moving);
    FocusWatch(const FocusWatch&) = delete;
    FocusWatch& operator=(const FocusWatch&) = delete;
    ~FocusWatch();

 private:
    static LRESULT CALLBACK hook(int code, WPARAM wParam, LPARAM lParam) noexcept;

    std::function<void(HWND)> moving_;
};

}  // namespace velvox
