#include "controlkit/scroll_container_win32.h"

#include <commctrl.h>

#include <utility>

#include "base/buffered_paint_win32.h"
#include "base/system_win32.h"
#include "controlkit/scroll_look.h"

namespace velvox {
namespace {

constexpr UINT_PTR contentSubclass = 1;

/// Lengths and steps in pixels of a 96 dpi screen.
constexpr int barThickness = 17;
constexpr int smallChange = 16;
constexpr int wheelChange = 48;

bool mouseIsPressed() {
    return GetKeyState(VK_LBUTTON) < 0 || GetKeyState(VK_RBUTTON) < 0 ||
           GetKeyState(VK_MBUTTON) < 0;
}

/// Whether children send this message to their parent.
bool isForParent(UINT message) {
    return message == WM_COMMAND || message == WM_NOTIFY ||
           (message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC);
}

}  // namespace

tsScrollContainer::~tsScrollContainer() {
    detach();
    destroy();
}

void tsScrollContainer::create(HWND parent, const RECT& bounds, int id) {
    constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    Window::create({.className = L"VelvoxScrollContainer",
                    .style = style,
                    .extendedStyle = WS_EX_CONTROLPARENT,
                    .bounds = bounds,
                    .parent = parent,
                    .id = id});
    view_.create({.className = L"VelvoxScrollView",
                  .style = style,
                  .extendedStyle = WS_EX_CONTROLPARENT,
                  .parent = handle()});
    for (ScrollBarWindow* each : {&bar(Axis::Vertical), &bar(Axis::Horizontal)}) {
        each->Value(0);
        each->SmallChange(scaled(smallChange));
        each->WheelChange(scaled(wheelChange));
        each->Scroll = [this] { follow(); };
        each->create(handle(), {});
    }
    vertical_.ScrollHeight(barThickness);
    horizontal_.ScrollWidth(barThickness);
    focus_.emplace([this](HWND to) { focusMoves(to); });
    arrange();
}

ScrollBarWindow& tsScrollContainer::bar(Axis axis) {
    if (axis == Axis::Vertical) return vertical_;
    return horizontal_;
}

void tsScrollContainer::setContent(HWND content) {
    attach(content, std::nullopt);
}

void tsScrollContainer::setDrawnContent(HWND content, const SIZE& whole) {
    attach(content, whole);
}

void tsScrollContainer::attach(HWND content, std::optional<SIZE> drawn) {
    if (content != content_) {
        detach();
        if (content && !SetWindowSubclass(content, &tsScrollContainer::contentThunk,
                                          contentSubclass, reinterpret_cast<DWORD_PTR>(this)))
            throwLastError("SetWindowSubclass");
        content_ = content;
        // The bars are tab stops only if the content cannot receive keys.
        const bool takesKeys =
            content && ((GetWindowLongW(content, GWL_STYLE) & WS_TABSTOP) ||
                        (GetWindowLongW(content, GWL_EXSTYLE) & WS_EX_CONTROLPARENT));
        for (const HWND each : {vertical_.hWnd(), horizontal_.hWnd()}) {
            const LONG style = GetWindowLongW(each, GWL_STYLE) & ~WS_TABSTOP;
            SetWindowLongW(each, GWL_STYLE, takesKeys ? style : style | WS_TABSTOP);
        }
    }
    drawn_ = drawn;
    arrange();
}

void tsScrollContainer::detach() noexcept {
    if (content_) RemoveWindowSubclass(content_, &tsScrollContainer::contentThunk, contentSubclass);
    content_ = nullptr;
    drawn_.reset();
}

LRESULT CALLBACK tsScrollContainer::contentThunk(HWND window, UINT message, WPARAM wParam,
                                                 LPARAM lParam, UINT_PTR, DWORD_PTR self) noexcept {
    const auto container = reinterpret_cast<tsScrollContainer*>(self);
    try {
        if (message == WM_NCDESTROY) {
            container->detach();
            container->arrange();
        } else if (message == WM_WINDOWPOSCHANGED && !container->drawn_) {
            const auto& change = *reinterpret_cast<const WINDOWPOS*>(lParam);
            if (!(change.flags & SWP_NOSIZE)) container->arrange();
        }
    } catch (...) {
        reportCurrentFailure();
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

Size tsScrollContainer::contentSize() const {
    if (!content_) return {};
    if (drawn_) return {drawn_->cx, drawn_->cy};
    RECT size{};
    GetWindowRect(content_, &size);
    return {size.right - size.left, size.bottom - size.top};
}

void tsScrollContainer::arrange() {
    // Limits the recursion for content that requests another size whenever it is resized.
    constexpr int maxNesting = 3;
    if (!horizontal_.hWnd() || arranging_ == maxNesting) return;
    struct Nesting {
        explicit Nesting(int& counter) : depth(++counter) {}
        ~Nesting() { --depth; }
        int& depth;
    } const nesting(arranging_);

    const RECT client = clientArea(handle());
    // The bars' outlines overlap the container's outline, so that only one line is visible.
    const int line = scaled(scrollSizes.border);
    const int thick = scaled(barThickness);
    layout_ = layOutScroll({client.right - 2 * line, client.bottom - 2 * line}, contentSize(),
                           thick - line);
    const LONG lower = layout_.horizontal.hasBar ? client.bottom - thick + line : client.bottom;
    const LONG right = layout_.vertical.hasBar ? client.right - thick + line : client.right;
    place(vertical_, {client.right - thick, 0, client.right, lower}, layout_.vertical);
    place(horizontal_, {0, client.bottom - thick, right, client.bottom}, layout_.horizontal);
    InvalidateRect(handle(), nullptr, FALSE);
    SetWindowPos(view(), nullptr, line, line, layout_.horizontal.view, layout_.vertical.view,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    follow();
    // This call must be the last, because it may re-enter arrange().
    if (content_ && drawn_)
        SetWindowPos(content_, nullptr, 0, 0, layout_.horizontal.view, layout_.vertical.view,
                     SWP_NOZORDER | SWP_NOACTIVATE);
}

void tsScrollContainer::place(ScrollBarWindow& each, const RECT& at, const ScrollExtent& extent) {
    each.LargeChange(extent.view);
    each.Max(extent.max);
    const HWND window = each.hWnd();
    if (!extent.hasBar && GetFocus() == window) SetFocus(content_ ? content_ : GetParent(handle()));
    SetWindowPos(window, nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | (extent.hasBar ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void tsScrollContainer::follow() {
    const POINT now{horizontal_.Value().toWhole(), vertical_.Value().toWhole()};
    const POINT before = std::exchange(position_, now);
    if (content_ && !drawn_)
        SetWindowPos(content_, nullptr, -now.x, -now.y, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    if (now.x == before.x && now.y == before.y) return;
    if (content_ && drawn_) InvalidateRect(content_, nullptr, FALSE);
    if (Scroll) Scroll();
    if (content_) UpdateWindow(content_);
}

void tsScrollContainer::scrollTo(const POINT& position) {
    horizontal_.Value(static_cast<std::int32_t>(position.x));
    vertical_.Value(static_cast<std::int32_t>(position.y));
    follow();
}

void tsScrollContainer::scrollIntoView(const RECT& part) {
    const auto showing = [](LONG start, LONG end, LONG position, int view) {
        return positionShowing({static_cast<int>(start), static_cast<int>(end - start)},
                               static_cast<int>(position), view);
    };
    scrollTo({showing(part.left, part.right, position_.x, layout_.horizontal.view),
              showing(part.top, part.bottom, position_.y, layout_.vertical.view)});
}

void tsScrollContainer::focusMoves(HWND to) {
    // If a press of the mouse moves the focus, nothing scrolls: the pressed control stays under the
    // pointer.
    if (!content_ || drawn_ || !IsChild(content_, to) || mouseIsPressed()) return;
    RECT at{};
    GetWindowRect(to, &at);
    MapWindowPoints(nullptr, content_, reinterpret_cast<POINT*>(&at), 2);
    scrollIntoView(at);
}

std::optional<LRESULT> tsScrollContainer::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE: arrange(); return 0;
        case WM_DESTROY: detach(); return std::nullopt;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_SYSCOLORCHANGE: InvalidateRect(handle(), nullptr, TRUE); return std::nullopt;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL: return onWheel(message, wParam);
        case WM_KEYDOWN: return onKey(wParam);
        default:
            if (!isForParent(message)) return std::nullopt;
            return SendMessageW(GetParent(handle()), message, wParam, lParam);
    }
}

std::optional<LRESULT> tsScrollContainer::onWheel(UINT message, WPARAM wParam) {
    const int delta = GET_WHEEL_DELTA_WPARAM(wParam);
    bool done = false;
    if (message == WM_MOUSEHWHEEL)
        done = layout_.horizontal.hasBar && horizontal_.wheel(-delta);
    else if (const auto axis = barOfWheel((wParam & MK_SHIFT) != 0, layout_))
        done = bar(*axis).wheel(delta);
    if (done) return 0;
    return std::nullopt;
}

std::optional<LRESULT> tsScrollContainer::onKey(WPARAM code) {
    const auto axis = barOfKey(static_cast<std::int16_t>(code), layout_);
    if (!axis) return std::nullopt;
    SendMessageW(bar(*axis).hWnd(), WM_KEYDOWN, code, 0);
    return 0;
}

void tsScrollContainer::paint(HDC target) const {
    const RECT client = clientArea(handle());
    const BufferedPaint buffer(target, client);
    const HDC dc = buffer.dc();
    const CurrentSystemColours system;
    fill(dc, client, translate(vertical_.BorderColor(), system));
    const int line = scaled(scrollSizes.border);
    const int thick = scaled(barThickness);
    // The corner between the bars.
    fill(dc,
         {client.right - thick + line, client.bottom - thick + line, client.right - line,
          client.bottom - line},
         system.colour(WindowColour));
}

std::optional<LRESULT> tsScrollContainer::View::onMessage(UINT message, WPARAM wParam,
                                                          LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT: {
            const RECT client = clientArea(handle());
            FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_WINDOW));
            return 1;
        }
        case WM_KEYDOWN:
        case WM_MOUSEHWHEEL: break;  // some systems do not pass this message on to the parent
        default:
            if (!isForParent(message)) return std::nullopt;
    }
    return SendMessageW(GetParent(handle()), message, wParam, lParam);
}

}  // namespace velvox
