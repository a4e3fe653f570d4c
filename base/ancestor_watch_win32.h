// A window inside a hidden or disabled container gets no message about it. While the mouse or a key
// is held down it has to know: the release may never arrive.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace velvox {

/// Observes the ancestors of a window.
class AncestorWatch {
 public:
    AncestorWatch() = default;
    AncestorWatch(const AncestorWatch&) = delete;
    AncestorWatch& operator=(const AncestorWatch&) = delete;
    ~AncestorWatch() { stop(); }

    /// Invokes `unusable` each time an ancestor of `window` is hidden or disabled, until `stop`.
    /// The callback may stop or destroy the watch.
    void start(HWND window, std::function<void()> unusable);
    void stop() noexcept;

 private:
    static LRESULT CALLBACK thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  UINT_PTR id, DWORD_PTR self) noexcept;

    std::vector<HWND> ancestors_;
    std::function<void()> unusable_;
};

}  // namespace velvox
