#include "controls/is_button_win32.h"

#include "base/system_win32.h"

namespace velvox {

isButtonWindow::isButtonWindow(isButton& model, HWND parent, int id) : model_(model) {
    constexpr const wchar_t* className = L"isButton";
    registerWindowClass(className, CS_DBLCLKS);
    WindowRequest request;
    request.className = className;
    request.text = widen(model.Caption());
    request.style = WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS;
    if (model.Visible()) request.style |= WS_VISIBLE;
    if (!model.Enabled()) request.style |= WS_DISABLED;
    request.bounds = toPixels(model.place());
    request.parent = parent;
    request.id = id;
    create(request);
    model_.setView(this);
    model_.setHost(this);
}

isButtonWindow::~isButtonWindow() {
    model_.setView(nullptr);
    model_.setHost(nullptr);
    destroy();
}

void isButtonWindow::follow(Aspect) {}

std::optional<LRESULT> isButtonWindow::onMessage(UINT, WPARAM, LPARAM) {
    return std::nullopt;
}

void isButtonWindow::requestLeaveNotice() {}
void isButtonWindow::showToolTip() {}
void isButtonWindow::showAbout() {}
void isButtonWindow::openAddress(std::string_view) {}

}  // namespace velvox
