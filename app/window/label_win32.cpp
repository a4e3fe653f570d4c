#include "app/window/label_win32.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/accessible_name_win32.h"
#include "base/buffered_paint_win32.h"
#include "base/child_window_win32.h"
#include "base/system_win32.h"
#include "base/twips.h"

namespace velvox {
namespace {

DWORD styleOf(ControlKind kind) {
    const DWORD style = WS_CHILD | WS_CLIPSIBLINGS | SS_NOTIFY | SS_NOPREFIX;
    return kind == ControlKind::Link ? style | WS_TABSTOP : style;
}

UINT drawFlagsOf(ControlKind kind) {
    const UINT flags = DT_NOPREFIX | DT_LEFT;
    switch (kind) {
        case ControlKind::Link: return flags | DT_WORDBREAK | DT_EDITCONTROL;
        default: return flags | DT_SINGLELINE | DT_END_ELLIPSIS;
    }
}

Skin::TextRole roleOf(ControlKind kind) {
    switch (kind) {
        case ControlKind::Link: return Skin::TextRole::Link;
        case ControlKind::DragHandle: return Skin::TextRole::Title;
        default: return Skin::TextRole::Plain;
    }
}

}  // namespace

LabelWindow::LabelWindow(Label& model, HWND parent, int id, ControlKind kind, const Skin& skin)
    : model_(model), kind_(kind), skin_(skin), font_(createFont(model.font())) {
    create({.className = L"STATIC",
            .text = widen(model.Caption()),
            .style = styleOf(kind) | (model.Visible() ? WS_VISIBLE : 0U),
            .bounds = toPixels(model.bounds()),
            .parent = parent,
            .id = id});
    SetWindowFont(handle(), font_.get(), FALSE);
    if (kind == ControlKind::Link) setAccessibleName(handle(), {}, ROLE_SYSTEM_LINK);
    model_.setObserver(this);
}

LabelWindow::~LabelWindow() {
    model_.setObserver(nullptr);
}

void LabelWindow::controlChanged(ControlChange change) {
    followBounds(handle(), model_, change);
    if (change != ControlChange::Text && change != ControlChange::Appearance) return;
    if (change == ControlChange::Text && kind_ != ControlKind::Strip)
        SetWindowTextW(handle(), widen(model_.Caption()).c_str());
    // As long as the program runs, the news strip changes ten times a second and the home page link
    // blinks. Painting directly costs much less than painting through the message loop, and storing
    // the strip's text in the window would cost more than drawing it. A label that is hidden or
    // minimised is painted when it is shown again.
    if (!IsWindowVisible(handle()) || IsIconic(GetAncestor(handle(), GA_ROOT))) return;
    const WindowDc dc(handle());
    paint(dc.get());
}

std::optional<LRESULT> LabelWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SETTEXT:
            // Keeps the message from the STATIC class, which would draw at once over this window's
            // painting.
            return DefWindowProcW(handle(), message, wParam, lParam);
        case WM_GETTEXTLENGTH:
            if (kind_ != ControlKind::Strip) break;
            return static_cast<LRESULT>(widen(model_.Caption()).size());
        case WM_GETTEXT:
            if (kind_ != ControlKind::Strip) break;
            return copyText(model_.Caption(), wParam, lParam);
        case WM_ENABLE:
        case WM_SETFOCUS:
        case WM_KILLFOCUS: InvalidateRect(handle(), nullptr, FALSE); return 0;
        case WM_NCHITTEST:
            return kind_ == ControlKind::Text || kind_ == ControlKind::Strip ? HTTRANSPARENT
                                                                             : HTCLIENT;
        case WM_SETCURSOR:
            if (kind_ != ControlKind::Link) return std::nullopt;
            SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_HAND)));
            return TRUE;
        case WM_GETDLGCODE:
            if (kind_ == ControlKind::Link && lParam) {
                const WPARAM key = reinterpret_cast<const MSG*>(lParam)->wParam;
                if (key == VK_RETURN || key == VK_SPACE) return DLGC_WANTMESSAGE;
            }
            return DLGC_STATIC;
        case WM_KEYDOWN:
            if (kind_ != ControlKind::Link || (wParam != VK_RETURN && wParam != VK_SPACE)) break;
            // A held key opens the link only once.
            if ((HIWORD(lParam) & KF_REPEAT) == 0 && model_.Click) model_.Click();
            return 0;
        case WM_LBUTTONDOWN:
            if (kind_ == ControlKind::DragHandle) passMouse(model_.MouseDown, wParam, lParam);
            if (kind_ == ControlKind::Link) {
                SetCapture(handle());
                pressed_ = true;
            }
            return 0;
        case WM_LBUTTONUP: release({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}); return 0;
        case WM_CAPTURECHANGED: pressed_ = false; return 0;
        default: break;
    }
    return std::nullopt;
}

// A click is a press and a release that are both inside the link.
void LabelWindow::release(POINT at) {
    if (!std::exchange(pressed_, false)) return;
    ReleaseCapture();
    const RECT area = clientArea(handle());
    if (PtInRect(&area, at) && model_.Click) model_.Click();
}

void LabelWindow::passMouse(const MouseEvents::Handler& handler, WPARAM keys, LPARAM at) const {
    if (!handler) return;
    const int shift = (keys & MK_SHIFT ? 1 : 0) | (keys & MK_CONTROL ? 2 : 0);
    handler(MouseButton::Left, shift, static_cast<float>(toTwips(GET_X_LPARAM(at))),
            static_cast<float>(toTwips(GET_Y_LPARAM(at))));
}

void LabelWindow::paint(HDC target) {
    RECT area = clientArea(handle());
    const BufferedPaint buffer(target, area);
    const HDC dc = buffer.dc();
    paintParentBackground(handle(), dc);
    const ScopedSelectObject font(dc, font_.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, static_cast<COLORREF>(skin_.textColour(roleOf(kind_), model_.ForeColor())));
    const std::wstring text = widen(model_.Caption());
    const UINT flags = drawFlagsOf(kind_);
    // DrawText would measure the text of the news strip, which is longer than the strip.
    if (kind_ == ControlKind::Strip)
        TextOutW(dc, area.left, area.top, text.data(), static_cast<int>(text.size()));
    else
        DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, flags);
    if (kind_ == ControlKind::Link && GetFocus() == handle()) {
        RECT ring = area;
        DrawTextW(dc, text.data(), static_cast<int>(text.size()), &ring, flags | DT_CALCRECT);
        ring.bottom = std::min(ring.bottom + thinLine(), area.bottom);  // below the underline
        SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
        drawFocusRing(dc, ring);
    }
}

}  // namespace velvox
