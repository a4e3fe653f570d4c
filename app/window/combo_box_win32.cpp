#include "app/window/combo_box_win32.h"

#include <windowsx.h>

#include "base/child_window_win32.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr int droppedRows = 12;

}  // namespace

ComboBoxWindow::ComboBoxWindow(ComboBox& model, HWND parent, int id)
    : model_(model), font_(createFont(Font{})) {
    RECT pixels = toPixels(model.bounds());
    // The height of a drop-down list's window includes the open list.
    pixels.bottom += (pixels.bottom - pixels.top) * droppedRows;
    create({.className = L"COMBOBOX",
            .style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST |
                     (model.Visible() ? WS_VISIBLE : 0U),
            .bounds = pixels,
            .parent = parent,
            .id = id});
    SetWindowFont(handle(), font_.get(), FALSE);
    for (const std::string& item : model_.items())
        ComboBox_AddString(handle(), widen(item).c_str());
    controlChanged(ControlChange::Selection);
    model_.setObserver(this);
}

ComboBoxWindow::~ComboBoxWindow() {
    model_.setObserver(nullptr);
}

void ComboBoxWindow::controlChanged(ControlChange change) {
    if (change == ControlChange::Items)
        ComboBox_AddString(handle(), widen(model_.items().back()).c_str());
    else if (change == ControlChange::Selection &&
             ComboBox_GetCurSel(handle()) != model_.ListIndex())
        ComboBox_SetCurSel(handle(), model_.ListIndex());
    else
        followBounds(handle(), model_, change);
}

std::optional<LRESULT> ComboBoxWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    // Wine's COMBOBOX class opens the list for Alt+F4 as for F4, but Alt+F4 must end the program.
    if (message == WM_SYSKEYDOWN && wParam == VK_F4)
        return DefWindowProcW(handle(), message, wParam, lParam);
    if (message != reflectedCommand) return std::nullopt;
    if (HIWORD(wParam) == CBN_SELCHANGE) model_.ListIndex(ComboBox_GetCurSel(handle()));
    return 0;
}

}  // namespace velvox
