// tsScrollContainer: a window that shows a part of a larger one, with the bars to move it.
#pragma once

#include <functional>
#include <optional>

#include "base/window_win32.h"
#include "controlkit/focus_watch_win32.h"
#include "controlkit/scroll_bar_win32.h"
#include "controlkit/scroll_layout.h"

namespace velvox {

/// Positions and sizes are in pixels of the screen. The bars show where the content does not fit;
/// their Max, LargeChange and Value follow from content and size, and the container handles their
/// Scroll. What else they have is free for use.
///
/// The wheel scrolls wherever the content leaves it to its parent. Keys scroll when the content
/// sends their WM_KEYDOWN on to `view`. A control in the content that gets the focus, other than by
/// a press of the mouse, is scrolled into view. WM_COMMAND, WM_NOTIFY and WM_CTLCOLOR... of the
/// content reach the container's parent.
class tsScrollContainer : private Window {
 public:
    ~tsScrollContainer() override;

    /// Makes the visible window, without content. Throws RuntimeFailure (Platform).
    void create(HWND parent, const RECT& bounds, int id = 0);

    /// Null before creation.
    HWND hWnd() const noexcept { return handle(); }

    /// The window to create the content in.
    HWND view() const noexcept { return view_.handle(); }

    /// Shows a child of `view`, or null for none, and moves it as the bars say. The bars follow its
    /// size. The system counts the mouse in 16 bits: up to 32,767 pixels. The container does not
    /// own the window.
    void setContent(HWND content);

    /// Content of any size that draws the seen part itself: its window always is as large as the
    /// view, and is redrawn when `position` changes. Repeated for the same window where `whole`
    /// changes.
    void setDrawnContent(HWND content, const SIZE& whole);

    /// The point of the content at the view's upper left corner. Kept when the container or the
    /// content is resized, unless the content then ends too early for it.
    POINT position() const noexcept { return position_; }
    void scrollTo(const POINT& position);

    /// Scrolls no further than is needed to see a part of the content.
    void scrollIntoView(const RECT& part);

    /// How much of the content is seen.
    SIZE viewSize() const noexcept { return {layout_.horizontal.view, layout_.vertical.view}; }

    tsVScrollPrivate& vertical() noexcept { return vertical_; }
    tsHScrollPrivate& horizontal() noexcept { return horizontal_; }

    /// Raised after the position has changed, whatever the reason.
    std::function<void()> Scroll;

 private:
    class View : public Window {
     public:
        ~View() override { destroy(); }
        using Window::create;

     private:
        std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    };

    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> onWheel(UINT message, WPARAM wParam);
    std::optional<LRESULT> onKey(WPARAM code);
    void paint(HDC dc) const;

    void attach(HWND content, std::optional<SIZE> drawn);
    void detach() noexcept;
    static LRESULT CALLBACK contentThunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR self) noexcept;
    Size contentSize() const;
    void arrange();
    void place(ScrollBarWindow& bar, const RECT& at, const ScrollExtent& extent);
    void follow();
    void focusMoves(HWND to);
    ScrollBarWindow& bar(Axis axis);

    View view_;
    tsVScrollPrivate vertical_;
    tsHScrollPrivate horizontal_;
    ScrollLayout layout_;
    HWND content_ = nullptr;
    std::optional<SIZE> drawn_;  // the size of content that draws itself
    POINT position_{};
    int arranging_ = 0;
    std::optional<FocusWatch> focus_;
};

}  // namespace velvox
