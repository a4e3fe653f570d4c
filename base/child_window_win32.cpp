#include "base/child_window_win32.h"

#include "base/system_win32.h"

namespace velvox {

bool reflectCommand(LPARAM child, WPARAM wParam) {
    if (!child) return false;
    SendMessageW(reinterpret_cast<HWND>(child), reflectedCommand, wParam, child);
    return true;
}

void paintParentBackground(HWND child, HDC dc) {
    const HWND parent = GetParent(child);
    POINT origin{};
    MapWindowPoints(child, parent, &origin, 1);
    POINT before{};
    OffsetWindowOrgEx(dc, origin.x, origin.y, &before);
    SendMessageW(parent, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT | PRF_ERASEBKGND);
    SetWindowOrgEx(dc, before.x, before.y, nullptr);
}

void followBounds(HWND window, const Control& control, ControlChange change) {
    if (change == ControlChange::Bounds) {
        const RECT at = toPixels(control.bounds());
        SetWindowPos(window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    } else if (change == ControlChange::Visible) {
        ShowWindow(window, control.Visible() ? SW_SHOWNA : SW_HIDE);
    }
}

}  // namespace velvox
