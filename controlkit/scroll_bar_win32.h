// The scroll bars as windows. One class serves both directions; what differs is the axis and the
// name under which the arrows' length is known.
#pragma once

#include <array>
#include <optional>

#include "base/ancestor_watch_win32.h"
#include "base/window_win32.h"
#include "controlkit/scroll_control.h"
#include "controlkit/virtual_dc_win32.h"

namespace velvox {

class ScrollBarWindow : public ScrollControl, private Window, private ScrollHost {
 public:
    explicit ScrollBarWindow(Axis axis) : ScrollControl(axis, *this) {}
    ~ScrollBarWindow() override { destroy(); }

    /// Makes the visible window at a place of the parent's client area, in pixels. Throws
    /// RuntimeFailure (Platform).
    void create(HWND parent, const RECT& bounds, int id = 0);

    /// Answers a message of the bar's window, or nullopt for the system's default.
    std::optional<LRESULT> WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Null before creation.
    HWND hWnd() const noexcept { return handle(); }

    /// The DC of the surface that the bar was last drawn on; null before its first drawing.
    HDC hDC() const noexcept { return surface_.hDC(); }

    /// Draws now, whatever UnRefreshControl says.
    void Refresh();

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return WindowProc(message, wParam, lParam);
    }

    void repaint() override;
    void capture(bool on) override;
    void startTimer(RepeatTimer timer, int milliseconds) override;
    void stopTimer(RepeatTimer timer) override;
    void requestLeave() override;
    void enable(bool enabled) override;

    std::optional<LRESULT> onMouse(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> onKey(UINT message, WPARAM wParam, LPARAM lParam);
    BarPoint barPoint(LPARAM lParam) const;
    void measure();
    void paint(HDC target);

    clsVirtualDC surface_;
    AncestorWatch containers_;  // while a part is held: hidden or disabled they end the press
    std::array<UINT_PTR, 2> timerIds_{};  // 0 while a timer does not run
    UINT_PTR lastTimerId_ = 0;
};

class tsVScrollPrivate : public ScrollBarWindow {
 public:
    tsVScrollPrivate() : ScrollBarWindow(Axis::Vertical) {}
    ~tsVScrollPrivate() override;

    /// The length of an arrow button along the bar, in pixels of a 96 dpi screen.
    std::int32_t ScrollHeight() const noexcept { return arrowLength(); }
    void ScrollHeight(std::int32_t pixels) { arrowLength(pixels); }
};

class tsHScrollPrivate : public ScrollBarWindow {
 public:
    tsHScrollPrivate() : ScrollBarWindow(Axis::Horizontal) {}
    ~tsHScrollPrivate() override;

    /// The length of an arrow button along the bar, in pixels of a 96 dpi screen.
    std::int32_t ScrollWidth() const noexcept { return arrowLength(); }
    void ScrollWidth(std::int32_t pixels) { arrowLength(pixels); }
};

}  // namespace velvox
