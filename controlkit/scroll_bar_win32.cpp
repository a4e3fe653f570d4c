#include "controlkit/scroll_bar_win32.h"

#include <windowsx.h>

#include "base/mouse_win32.h"
#include "base/system_win32.h"
#include "controlkit/scroll_painter_win32.h"

namespace velvox {
namespace {

constexpr const wchar_t* scrollBarClass = L"VelvoxScrollBar";

enum ShiftMask : std::int16_t { ShiftKey = 1, ControlKey = 2, AltKey = 4 };

bool isDown(int key) {
    return GetKeyState(key) < 0;
}

/// The modifier keys of a key message. Alt is also read from the message's flags, because the key
/// may have been released since.
std::int16_t keyShiftState(LPARAM keyFlags) {
    return static_cast<std::int16_t>(
        (isDown(VK_SHIFT) ? ShiftKey : 0) | (isDown(VK_CONTROL) ? ControlKey : 0) |
        (isDown(VK_MENU) || (HIWORD(keyFlags) & KF_ALTDOWN) ? AltKey : 0));
}

std::int16_t mouseShiftState(WPARAM mouseFlags) {
    return static_cast<std::int16_t>((mouseFlags & MK_SHIFT ? ShiftKey : 0) |
                                     (mouseFlags & MK_CONTROL ? ControlKey : 0) |
                                     (isDown(VK_MENU) ? AltKey : 0));
}

MouseButton buttonOf(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_LBUTTONDBLCLK: return MouseButton::Left;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
        case WM_RBUTTONDBLCLK: return MouseButton::Right;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONUP:
        case WM_MBUTTONDBLCLK: return MouseButton::Middle;
        default: return MouseButton::None;
    }
}

}  // namespace

void ScrollBarWindow::create(HWND parent, const RECT& bounds, int id) {
    Window::create({.className = scrollBarClass,
                    .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | (Enabled() ? 0U : WS_DISABLED),
                    .bounds = bounds,
                    .parent = parent,
                    .id = id,
                    .classStyle = CS_DBLCLKS});
    measure();
}

void ScrollBarWindow::Refresh() {
    if (!handle()) return;
    InvalidateRect(handle(), nullptr, FALSE);
    UpdateWindow(handle());
}

std::optional<LRESULT> ScrollBarWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE: measure(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_SYSCOLORCHANGE: repaint(); return std::nullopt;

        case WM_MOUSELEAVE: mouseLeave(); return 0;
        case WM_CAPTURECHANGED: captureLost(); return 0;
        case WM_CANCELMODE: captureLost(); return std::nullopt;
        case WM_SHOWWINDOW:
            if (!wParam) hidden();
            return std::nullopt;
        case WM_ENABLE:
            // Other code may have called EnableWindow without setting Enabled.
            if (Enabled() != (wParam != 0)) Enabled(wParam != 0);
            return 0;
        case WM_TIMER:
            // A tick whose id is not in timerIds_ is left from a timer that has been stopped or
            // restarted. It is ignored.
            for (const RepeatTimer timer : {RepeatTimer::Arrow, RepeatTimer::Track})
                if (wParam == timerIds_[static_cast<std::size_t>(timer)]) tick(timer);
            return 0;

        case WM_MOUSEWHEEL:
            if (wheel(GET_WHEEL_DELTA_WPARAM(wParam))) return 0;
            return std::nullopt;
        case WM_MOUSEHWHEEL:
            // A positive delta scrolls right, towards Max. Only a horizontal bar handles this
            // message.
            if (axis() == Axis::Horizontal && wheel(-GET_WHEEL_DELTA_WPARAM(wParam))) return 0;
            return std::nullopt;

        case WM_SETFOCUS: focus(true); return 0;
        case WM_KILLFOCUS: focus(false); return 0;
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP: return onKey(message, wParam, lParam);
        default: return onMouse(message, wParam, lParam);
    }
}

std::optional<LRESULT> ScrollBarWindow::onMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const BarPoint at = barPoint(lParam);
    const MouseState state{buttonOf(message), mouseShiftState(wParam)};
    switch (message) {
        case WM_MOUSEMOVE: mouseMove(at, {heldButtons(wParam), state.shift}); return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: SetFocus(handle()); [[fallthrough]];
        case WM_RBUTTONDOWN:
        case WM_MBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: {
            const bool isDouble = message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK ||
                                  message == WM_MBUTTONDBLCLK;
            isDouble ? mouseDoubleClick(at, state) : mouseDown(at, state);
            return 0;
        }
        case WM_LBUTTONUP:
        case WM_RBUTTONUP:
        case WM_MBUTTONUP: mouseUp(at, state); return 0;
        default: return std::nullopt;
    }
}

std::optional<LRESULT> ScrollBarWindow::onKey(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto code = static_cast<std::int16_t>(wParam);
    switch (message) {
        case WM_KEYDOWN: keyDown(code, keyShiftState(lParam)); return 0;
        case WM_KEYUP: keyUp(code, keyShiftState(lParam)); return 0;
        // The default procedure must also get these messages, because it opens menus and handles
        // shortcuts.
        case WM_SYSKEYDOWN: keyDown(code, keyShiftState(lParam)); return std::nullopt;
        case WM_SYSKEYUP: keyUp(code, keyShiftState(lParam)); return std::nullopt;
        default: keyPress(code); return 0;
    }
}

BarPoint ScrollBarWindow::barPoint(LPARAM lParam) const {
    const int x = GET_X_LPARAM(lParam);
    const int y = GET_Y_LPARAM(lParam);
    return axis() == Axis::Vertical ? BarPoint{y, x} : BarPoint{x, y};
}

void ScrollBarWindow::measure() {
    const RECT client = clientArea(handle());
    const bool vertical = axis() == Axis::Vertical;
    resize(vertical ? client.bottom : client.right, vertical ? client.right : client.bottom,
           screenDpi());
}

void ScrollBarWindow::paint(HDC target) {
    const bool vertical = axis() == Axis::Vertical;
    const int width = vertical ? thickness() : length();
    const int height = vertical ? length() : thickness();
    if (!surface_.hDC() || surface_.Width() != width || surface_.Height() != height)
        surface_.CreateMyDC(width, height);
    paintScrollBar(surface_, *this);
    surface_.PaintToDC(target);
}

void ScrollBarWindow::repaint() {
    if (handle()) InvalidateRect(handle(), nullptr, FALSE);
}

void ScrollBarWindow::capture(bool on) {
    if (on) {
        SetCapture(handle());
        containers_.start(handle(), [this] { hidden(); });
    } else {
        containers_.stop();
        if (GetCapture() == handle()) ReleaseCapture();
    }
}

void ScrollBarWindow::startTimer(RepeatTimer timer, int milliseconds) {
    stopTimer(timer);
    timerIds_[static_cast<std::size_t>(timer)] = ++lastTimerId_;
    if (!SetTimer(handle(), lastTimerId_, static_cast<UINT>(milliseconds), nullptr))
        throwLastError("SetTimer");
}

void ScrollBarWindow::stopTimer(RepeatTimer timer) {
    UINT_PTR& id = timerIds_[static_cast<std::size_t>(timer)];
    if (id) KillTimer(handle(), id);
    id = 0;
}

void ScrollBarWindow::requestLeave() {
    TRACKMOUSEEVENT request{sizeof request, TME_LEAVE, handle(), 0};
    TrackMouseEvent(&request);
}

void ScrollBarWindow::enable(bool enabled) {
    if (handle()) enableWindow(handle(), enabled);
    repaint();
}

// Not inline, because link-time optimisation has trouble with the thunks of inline destructors.
tsVScrollPrivate::~tsVScrollPrivate() = default;
tsHScrollPrivate::~tsHScrollPrivate() = default;

}  // namespace velvox
