#include "base/busy_pointer_win32.h"

namespace velvox {
namespace {

int alive = 0;

void set(LPCWSTR pointer) noexcept {
    SetCursor(LoadCursorW(nullptr, pointer));
}

// The window at a position of the screen if it belongs to this thread, otherwise null.
HWND windowUnder(POINT at) noexcept {
    const HWND window = WindowFromPoint(at);
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? window : nullptr;
}

}  // namespace

BusyPointer::BusyPointer() noexcept {
    ++alive;
    show();
}

BusyPointer::~BusyPointer() {
    if (--alive > 0) return;
    // Restores the pointer now, because Windows asks for a pointer only when the mouse moves. The
    // arrow is set first, because not every window of other libraries handles WM_SETCURSOR.
    POINT at{};
    GetCursorPos(&at);
    const HWND window = windowUnder(at);
    if (!window) return;
    set(IDC_ARROW);
    const LRESULT part = SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(at.x, at.y));
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                 MAKELPARAM(part, WM_MOUSEMOVE));
}

void BusyPointer::show() const noexcept {
    POINT at{};
    GetCursorPos(&at);
    if (windowUnder(at)) set(IDC_WAIT);
}

bool BusyPointer::onMessage(UINT message) noexcept {
    if (message != WM_SETCURSOR || alive == 0) return false;
    set(IDC_WAIT);
    return true;
}

}  // namespace velvox
