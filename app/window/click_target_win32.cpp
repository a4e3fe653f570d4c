#include "app/window/click_target_win32.h"

#include <windowsx.h>

#include <utility>

#include "base/child_window_win32.h"
#include "base/owned_win32.h"
#include "base/system_win32.h"

namespace velvox {

ClickTarget::ClickTarget(HWND parent, const RECT& pixels, std::function<void()> click)
    : click_(std::move(click)) {
    create({.className = L"ClickTarget",
            .style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS,
            .bounds = pixels,
            .parent = parent});
    SetWindowPos(handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

ClickTarget::~ClickTarget() {
    destroy();
}

std::optional<LRESULT> ClickTarget::onMessage(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paintParentBackground(handle(), PaintScope(handle()).dc()); return 0;
        case WM_LBUTTONDOWN:
            SetCapture(handle());
            pressed_ = true;
            return 0;
        case WM_CAPTURECHANGED: pressed_ = false; return 0;
        case WM_LBUTTONUP: {
            if (!std::exchange(pressed_, false)) return 0;
            ReleaseCapture();
            const RECT area = clientArea(handle());
            const auto click = click_;  // a copy, because the callback may destroy this object
            if (PtInRect(&area, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) click();
            return 0;
        }
        default: return std::nullopt;
    }
}

}  // namespace velvox
