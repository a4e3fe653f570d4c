#include "app/pane/result_pane_win32.h"

#include <algorithm>
#include <utility>

#include "app/pane/html_fragment.h"
#include "app/pane/rich_text.h"
#include "base/accessible_name_win32.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr int framePixels = 1;
constexpr int marginPixels = 4;  // at 96 DPI; above and to the left of the text

// A rich-edit control with more lines is replaced instead of cleared. Wine's control takes
// quadratic time to clear lines (1.2 s for 5,000, minutes for 32,767), and it leaks 272 bytes for
// each line cleared.
constexpr std::size_t linesWorthClearing = 1;

// Maximum bytes of HTML that are kept as the window's text, enough for the longest list that can be
// shown.
constexpr std::size_t maxKeptHtml = 16'000'000;

PaneColours systemPaneColours() {
    PaneColours colours;
    colours.background = static_cast<Rgb>(GetSysColor(COLOR_WINDOW));
    colours.link = static_cast<Rgb>(GetSysColor(COLOR_HOTLIGHT));
    // On a light background the red of error messages stays as it is; on a dark one it is made
    // legible.
    const Rgb black = rgb(0, 0, 0), white = rgb(255, 255, 255);
    if (contrast(white, colours.background) > contrast(black, colours.background))
        colours.plainContrast = textContrast;
    if (highContrast()) colours.linkContrast = colours.plainContrast = highTextContrast;
    return colours;
}

}  // namespace

ResultPaneWindow::ResultPaneWindow(HWND parent, const RECT& pixels, int id, Desktop& desktop)
    : desktop_(desktop) {
    create({.className = L"ResultPane",
            .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
            .extendedStyle = WS_EX_CONTROLPARENT,
            .bounds = pixels,
            .parent = parent,
            .id = id});
}

ResultPaneWindow::~ResultPaneWindow() {
    destroy();
}

void ResultPaneWindow::DocumentHTML(std::string_view html) noexcept {
    try {
        html_ = html.substr(0, maxKeptHtml);
        show(html, {});
    } catch (...) {
        reportCurrentFailure();
    }
}

void ResultPaneWindow::show(std::string_view html, const TextView& view) {
    colours_ = systemPaneColours();
    RichText text = toRichText(parseHtmlFragment(html), colours_);
    renewSlowText();
    this->text().show(std::move(text), view);
    RedrawWindow(handle(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

// A failure is not reported, because the next write tries again and reports it.
void ResultPaneWindow::prepare() noexcept {
    try {
        renewSlowText();
    } catch (...) {
    }
}

void ResultPaneWindow::systemColoursChanged() {
    if (text_ && systemPaneColours() != colours_) show(html_, text_->view());
}

LinkText& ResultPaneWindow::text() const {
    if (!text_) {
        text_ = std::make_unique<LinkText>(handle(), textPlace(), desktop_);
        setAccessibleName(text_->handle(), name_);
    }
    return *text_;
}

void ResultPaneWindow::renewSlowText() {
    if (!text_ || text_->lines() <= linesWorthClearing) return;
    const bool focused = GetFocus() == text_->handle();
    auto fresh = std::make_unique<LinkText>(handle(), textPlace(), desktop_);
    if (focused) SetFocus(fresh->handle());
    setAccessibleName(fresh->handle(), name_);
    text_ = std::move(fresh);
}

void ResultPaneWindow::accessibleName(std::wstring name) {
    name_ = std::move(name);
    if (text_) setAccessibleName(text_->handle(), name_);
}

std::optional<LRESULT> ResultPaneWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(widen(html_).size());
        case WM_GETTEXT: return copyText(html_, wParam, lParam);
        case WM_SETTEXT: return FALSE;
        case WM_SETFOCUS: SetFocus(text().handle()); return 0;
        case WM_SIZE:
            if (text_) {
                const RECT place = textPlace();
                MoveWindow(text_->handle(), place.left, place.top, place.right - place.left,
                           place.bottom - place.top, TRUE);
                InvalidateRect(handle(), nullptr, FALSE);
            }
            return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: {
            const auto dc = reinterpret_cast<HDC>(wParam);
            paint(dc);
            const RECT place = textPlace();
            POINT origin;
            OffsetViewportOrgEx(dc, place.left, place.top, &origin);
            SendMessageW(text().handle(), WM_PRINTCLIENT, wParam, lParam);
            SetViewportOrgEx(dc, origin.x, origin.y, nullptr);
            return 0;
        }
        default: return std::nullopt;
    }
}

RECT ResultPaneWindow::textPlace() const {
    const int margin = framePixels + scaled(marginPixels);
    const RECT place = clientArea(handle());
    return {margin, margin, std::max<LONG>(margin, place.right - framePixels),
            std::max<LONG>(margin, place.bottom - framePixels)};
}

void ResultPaneWindow::paint(HDC dc) const {
    const RECT all = clientArea(handle());
    FillRect(dc, &all, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(dc, &all, GetSysColorBrush(COLOR_BTNSHADOW));
}

}  // namespace velvox
