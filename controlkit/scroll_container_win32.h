// tsScrollContainer: a window with scroll bars that shows a part of a larger content.
#pragma once

#include <functional>
#include <optional>

#include "base/window_win32.h"
#include "controlkit/focus_watch_win32.h"
#include "controlkit/scroll_bar_win32.h"
#include "controlkit/scroll_layout.h"

namespace velvox {

/// Positions and sizes are in pixels of the screen. A bar is visible if the content does not fit in
/// its direction. The container sets the bars' Max, LargeChange and Value and handles their Scroll
/// event; their other properties and events are free for use.
///
/// The wheel scrolls if the content passes the wheel's messages on to its parent. Keys scroll if
/// the content sends WM_KEYDOWN on to `view`. A control in the content that gets the focus, other
/// than by a press of the mouse, is scrolled into view. WM_COMMAND, WM_NOTIFY and WM_CTLCOLOR... of
/// the content are passed on to the container's parent.
class tsScrollContainer : private Window {
 public:
    ~tsScrollContainer() override;

    /// Creates the visible window without content. Throws RuntimeFailure (Platform).
    void create(HWND parent, const RECT& bounds, int id = 0);

    /// Null before creation.
    HWND hWnd() const noexcept { return handle(); }

    /// The parent window for the content.
    HWND view() const noexcept { return view_.handle(); }

    /// Shows `content`, a child window of `view`; null shows nothing. The container moves the
    /// content when the bars scroll, and adapts the bars to the content's size. It does not own the
    /// content. Mouse positions have 16 bits, so the content can be up to 32,767 pixels wide or
    /// high.
    void setContent(HWND content);

    /// Shows content of any size that draws its visible part itself. Its window is always as large
    /// as the view and is redrawn when `position` changes. `whole` is the size of the whole
    /// content; call again when that size changes.
    void setDrawnContent(HWND content, const SIZE& whole);

    /// The point of the content at the view's upper left corner. It is kept when the container or
    /// the content is resized, unless the content becomes too small for it.
    POINT position() const noexcept { return position_; }
    void scrollTo(const POINT& position);

    /// Scrolls by the minimum that makes a part of the content visible.
    void scrollIntoView(const RECT& part);

    /// Size of the area that shows the content.
    SIZE viewSize() const noexcept { return {layout_.horizontal.view, layout_.vertical.view}; }

    tsVScrollPrivate& vertical() noexcept { return vertical_; }
    tsHScrollPrivate& horizontal() noexcept { return horizontal_; }

    /// Raised after every change of the position.
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
    void paint(HDC target) const;

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
    std::optional<SIZE> drawn_;  // whole size of content that draws its visible part itself
    POINT position_{};
    int arranging_ = 0;
    std::optional<FocusWatch> focus_;
};

}  // namespace velvox
