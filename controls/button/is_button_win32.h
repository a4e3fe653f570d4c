// The window of a push button: passes messages to the model, paints the model's look and shows the
// tool tip.
#pragma once

#include <memory>
#include <optional>

#include "base/ancestor_watch_win32.h"
#include "base/window_win32.h"
#include "controls/button/is_button.h"
#include "controls/button/is_button_face_win32.h"
#include "controls/button/is_button_theme_win32.h"
#include "controls/button/is_button_tool_tip_win32.h"
#include "controls/button/is_button_tracking_win32.h"

namespace velvox {

/// The system services that a button's window uses.
struct ButtonServices {
    ProcedureFinder& procedures = systemProcedures();
    ThemeLibrary& themes = systemThemes();
    ToolTipSystem& toolTips = systemToolTips();
};

class isButtonWindow : public Window, public ControlObserver, private ButtonHost {
 public:
    /// Creates a child window of class "isButton" that shows `model` and has the caption as its
    /// text. An event handler may destroy the window and the model, in any order.
    isButtonWindow(isButton& model, HWND parent, int id, const ButtonServices& services = {});
    ~isButtonWindow() override;

    void controlChanged(ControlChange change) override;

    HWND toolTip() const noexcept { return toolTip_.handle(); }
    /// Number of times the button has been painted on the screen.
    unsigned paints() const noexcept { return paints_; }

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> onMouse(UINT message, LPARAM lParam);
    std::optional<LRESULT> onKey(UINT message, WPARAM wParam, LPARAM lParam);
    void onFocus(bool got);
    void onDestroy();

    bool track(UINT message, LPARAM lParam);
    void beforeDefault(UINT message, LPARAM lParam);
    void detectTracking();

    void press(bool again);
    void release(POINT at);
    void captureLost();
    void endPress();
    void endUse();
    void watchPress();
    void endHover();
    bool over(POINT at) const;
    bool pointerIsOver() const;

    void paintOnScreen();
    void paintInto(HDC dc);
    void cutOutline();
    void repaint();

    void requestLeaveNotice() override;
    void showToolTip() override;
    void showAbout() override;
    void openAddress(std::string_view address) override;

    isButton& model_;
    std::weak_ptr<const void> modelAlive_;
    std::shared_ptr<const void> alive_ = std::make_shared<char>();
    ButtonServices services_;
    LeaveTracker tracker_;
    ToolTip toolTip_;
    bool tracksPointer_ = false;  ///< the model is notified of hovering
    bool pressing_ = false;  ///< the window has the capture while the left mouse button is down
    bool spaceHeld_ = false;
    AncestorWatch pressWatch_;
    bool focusCue_ = false;  ///< the focus came by keyboard
    bool outlined_ = false;  ///< a window region is set
    int outlineStyle_ = 0;
    SIZE outlineSize_{};
    std::optional<ButtonFace> face_;  ///< kept, because fresh memory costs more than most faces
    unsigned paints_ = 0;
};

}  // namespace velvox
