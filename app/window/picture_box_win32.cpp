#include "app/window/picture_box_win32.h"

#include <utility>

#include "base/buffered_paint_win32.h"
#include "base/child_window_win32.h"
#include "base/system_win32.h"

namespace velvox {

PictureBoxWindow::PictureBoxWindow(const ControlDesign& design, HWND parent, int id,
                                   Painter painter)
    : painter_(std::move(painter)) {
    create({.className = L"PictureBox",
            .style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN |
                     (design.shown == Shown::Result ? 0U : WS_VISIBLE),
            .extendedStyle = WS_EX_CONTROLPARENT,
            .bounds = toPixels(design.bounds),
            .parent = parent,
            .id = id});
}

PictureBoxWindow::~PictureBoxWindow() {
    if (model_) model_->setObserver(nullptr);
}

void PictureBoxWindow::bind(PictureBox& model) {
    model_ = &model;
    model.setObserver(this);
    controlChanged(ControlChange::Bounds);
}

void PictureBoxWindow::controlChanged(ControlChange change) {
    if (change == ControlChange::Visible) {
        const bool visible = model_->Visible();
        if (!visible && onVisible) onVisible(false);
        // A box comes to the front as it is shown.
        if (visible) SetWindowPos(handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        followBounds(handle(), *model_, change);
        if (visible && onVisible) onVisible(true);
        if (!visible && onHidden) onHidden();
        return;
    }
    followBounds(handle(), *model_, change);
    if (change == ControlChange::Appearance) InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<LRESULT> PictureBoxWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: {
            const RECT client = clientArea(handle());
            painter_(reinterpret_cast<HDC>(wParam), client);
            return 0;
        }
        case WM_ERASEBKGND: return 1;
        case WM_COMMAND:
            if (reflectCommand(lParam, wParam)) return 0;
            break;
        case WM_LBUTTONDOWN:
            if (model_ && model_->MouseDown) model_->MouseDown(MouseButton::Left, 0, 0, 0);
            return 0;
        default: break;
    }
    return std::nullopt;
}

void PictureBoxWindow::paint(HDC target) const {
    const RECT client = clientArea(handle());
    const BufferedPaint buffer(target, client);
    painter_(buffer.dc(), client);
}

}  // namespace velvox
