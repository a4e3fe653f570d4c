#include "base/ancestor_watch_win32.h"

#include <commctrl.h>

#include <utility>

#include "base/window_win32.h"

namespace velvox {
namespace {

bool endsUse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ENABLE:
        case WM_SHOWWINDOW: return wParam == FALSE;
        case WM_WINDOWPOSCHANGED:
            return (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW) != 0;
        default: return false;
    }
}

}  // namespace

void AncestorWatch::start(HWND window, std::function<void()> unusable) {
    stop();
    unusable_ = std::move(unusable);
    for (HWND at = window; (GetWindowLongW(at, GWL_STYLE) & WS_CHILD) != 0;) {
        at = GetAncestor(at, GA_PARENT);
        if (SetWindowSubclass(at, &AncestorWatch::thunk, reinterpret_cast<UINT_PTR>(this),
                              reinterpret_cast<DWORD_PTR>(this)))
            ancestors_.push_back(at);
    }
}

void AncestorWatch::stop() noexcept {
    for (const HWND window : ancestors_)
        RemoveWindowSubclass(window, &AncestorWatch::thunk, reinterpret_cast<UINT_PTR>(this));
    ancestors_.clear();
}

LRESULT CALLBACK AncestorWatch::thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR id, DWORD_PTR self) noexcept {
    auto* watch = reinterpret_cast<AncestorWatch*>(self);
    try {
        if (message == WM_NCDESTROY) {
            RemoveWindowSubclass(window, &AncestorWatch::thunk, id);
            std::erase(watch->ancestors_, window);
        } else if (endsUse(message, wParam, lParam)) {
            // A copy is called, because the callback may destroy the watch and its members.
            const auto unusable = watch->unusable_;
            unusable();
        }
    } catch (...) {
        reportCurrentFailure();
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace velvox
