#include "app/window/system_menu_win32.h"

#include <windowsx.h>

#include <cstdlib>
#include <utility>

#include "app/resource.h"
#include "app/window/program.h"

namespace velvox {
namespace {

// Must be below SC_SIZE. The four lowest bits must be 0, because the system uses them itself.
constexpr UINT aboutCommand = 0x10;

constexpr UINT commandOf(WPARAM wParam) {
    return wParam & 0xFFF0;
}

}  // namespace

SystemMenu::SystemMenu(HWND window, const RECT& titleBar, const RECT& icon,
                       std::function<bool()> running)
    : window_(window), titleBar_(titleBar), icon_(icon), running_(std::move(running)) {
    const HMENU menu = GetSystemMenu(window, FALSE);
    DeleteMenu(menu, SC_SIZE, MF_BYCOMMAND);
    DeleteMenu(menu, SC_MAXIMIZE, MF_BYCOMMAND);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_STRING, aboutCommand, L"A&bout Velvox");
}

std::optional<LRESULT> SystemMenu::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SYSCOMMAND:
            if (commandOf(wParam) == aboutCommand) {
                showAbout();
                return 0;
            }
            if (commandOf(wParam) != SC_KEYMENU || lParam != VK_SPACE) return std::nullopt;
            openBelowIcon();
            return 0;
        case WM_CONTEXTMENU: {
            if (lParam == -1) return std::nullopt;  // a key opens the menu: no position
            const POINT screen{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            POINT client = screen;
            ScreenToClient(window_, &client);
            if (!PtInRect(&titleBar_, client)) return std::nullopt;
            open(screen);
            return 0;
        }
        default: return std::nullopt;
    }
}

void SystemMenu::pressed(POINT client) noexcept {
    press_.reset();
    if (PtInRect(&icon_, client)) press_ = onScreen(client);
}

// The user can also drag the window by the icon. A click on the icon is a press and a release
// within the system's drag threshold.
void SystemMenu::released(POINT client) {
    const auto press = std::exchange(press_, std::nullopt);
    if (!press) return;
    const POINT now = onScreen(client);
    if (std::abs(press->x - now.x) < GetSystemMetrics(SM_CXDRAG) &&
        std::abs(press->y - now.y) < GetSystemMetrics(SM_CYDRAG))
        openBelowIcon();
}

POINT SystemMenu::onScreen(POINT client) const noexcept {
    ClientToScreen(window_, &client);
    return client;
}

void SystemMenu::openBelowIcon() const {
    // Over a minimised window Wine would open an invisible menu that takes all keys.
    if (IsIconic(window_)) return;
    open(onScreen({icon_.left, icon_.bottom}));
}

void SystemMenu::open(POINT screen) const {
    const HMENU menu = GetSystemMenu(window_, FALSE);
    const auto enable = [&](UINT command, bool enabled) {
        EnableMenuItem(menu, command, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
    };
    enable(SC_RESTORE, IsIconic(window_) != FALSE);
    enable(SC_MOVE, IsIconic(window_) == FALSE);
    enable(SC_MINIMIZE, IsIconic(window_) == FALSE);
    enable(aboutCommand, !running_());
    SetMenuDefaultItem(menu, SC_CLOSE, MF_BYCOMMAND);
    // The chosen command may destroy this object, so it is posted and runs after this function has
    // returned.
    const HWND window = window_;
    const UINT chosen = static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON,
                                                         screen.x, screen.y, 0, window, nullptr));
    if (chosen != 0) PostMessageW(window, WM_SYSCOMMAND, chosen, 0);
}

void SystemMenu::showAbout() const {
    if (running_()) return;
    MSGBOXPARAMSW box{};
    box.cbSize = sizeof box;
    box.hwndOwner = window_;
    box.hInstance = GetModuleHandleW(nullptr);
    box.lpszText =
        L"Velvox " VELVOX_VERSION
        "\n\nDirect links to the media files of video and comic-book pages.\n\n"
        "Copyright (c) 2026 the Velvox authors.\nFree software under the MIT licence, without "
        "any warranty; the full text is in readme.txt.";
    box.lpszCaption = L"About Velvox";
    box.dwStyle = MB_OK | MB_USERICON;
    box.lpszIcon = MAKEINTRESOURCEW(IDI_VELVOX);
    MessageBoxIndirectW(&box);
}

}  // namespace velvox
