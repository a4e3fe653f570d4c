// The system menu of the main window, which has no caption that would open this menu.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace velvox {

/// Alt+Space or a click on the icon opens the menu below the icon; a right click on the title bar
/// opens it at the pointer. It has the window's commands and "About Velvox".
class SystemMenu {
 public:
    /// `titleBar` and `icon` are bounds in the client area, in pixels. `running` returns whether a
    /// run is in progress; About is disabled during a run.
    SystemMenu(HWND window, const RECT& titleBar, const RECT& icon, std::function<bool()> running);

    /// Returns nullopt for a message that the menu does not handle.
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam);

    /// Called when the left button is pressed or released over the window itself, not over a child.
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
    std::optional<POINT> press_;  ///< position of a press on the icon, in screen coordinates
};

}  // namespace velvox
