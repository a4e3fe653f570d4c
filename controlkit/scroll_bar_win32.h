// The windows of the scroll bars. One class implements both directions; only the axis and the name
// of the arrow length (ScrollHeight or ScrollWidth) differ.
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

    /// Creates the visible window. `bounds` is in pixels of the parent's client area. Throws
    /// RuntimeFailure (Platform).
    void create(HWND parent, const RECT& bounds, int id = 0);

    /// Handles a message of the bar's window. Returns nullopt if the default procedure has to run.
    std::optional<LRESULT> WindowProc(UINT message, WPARAM wParam, LPARAM lParam);

    /// Null before creation.
    HWND hWnd() const noexcept { return handle(); }

    /// The DC of the off-screen surface; null before the bar has been drawn for the first time.
    HDC hDC() const noexcept { return surface_.hDC(); }

    /// Draws the bar immediately, whatever UnRefreshControl is.
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
    AncestorWatch containers_;  // ends a press when an ancestor window is hidden or disabled
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
