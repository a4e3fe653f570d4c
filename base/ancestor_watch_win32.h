// Windows sends a window no message when an ancestor is hidden or disabled. A control that waits
// for the release of a mouse button or a key must notice this change, because the release may then
// never arrive.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace velvox {

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
