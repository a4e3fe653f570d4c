// The main window's system menu: it has no caption that would open one.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace velvox {

/// Opens by Alt+Space and by a click on the icon below it, by a right click on the title bar at the
/// pointer. It holds what the window can do, and "About Velvox".
class SystemMenu {
 public:
    /// `titleBar` and `icon` are places in the client area, in pixels; `running` returns whether a
    /// run is under way, in which About is greyed.
    SystemMenu(HWND window, const RECT& titleBar, const RECT& icon, std::function<bool()> running);

    /// Empty for a message that is not the menu's.
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam);

    /// The left button went down or came up over the window itself.
    void pressed(POINT client) noexcept;
    void released(POINT client);

 private:
    POINT onScreen(POINT client) const noexcept;
    void open(POINT screen) const;
    void openBelowIcon() const;
    void showAbout() const;

    HWND window_;
    RECT titleBar_;
    RECT icon_;
    std::function<bool()> running_;
    std::optional<POINT> press_;  ///< on the icon, in screen coordinates
};

}  // namespace velvox
