// The main window on the screen: one window of class Form1 with a child for every control that the
// user can read or use. All logic is in Form1.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/form1/form1.h"
#include "app/form1/skin_colours.h"
#include "app/net/transfer_control_win32.h"
#include "app/window/address_drop_win32.h"
#include "app/window/desktop_win32.h"
#include "app/window/input_gate_win32.h"
#include "app/window/message_pump_win32.h"
#include "app/window/skin_win32.h"
#include "app/window/system_menu_win32.h"
#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {

class Form1Window : public Window, public FormFrame {
 public:
    Form1Window(MessagePump& pump, const TransferLimits& limits);
    ~Form1Window() override;

    /// Loads the form and shows the window.
    void show();

    Form1& form();

    Point cursorPosition() const override;
    Rect windowRect() const override;
    void moveTo(Point topLeft) override;
    void setCapture() override;
    void releaseCapture() override;

 private:
    struct Children;

    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    std::optional<LRESULT> onSystemCommand(WPARAM command);
    void paint(HDC dc) const;
    void paintResultArea(HDC dc, const RECT& client) const;
    void showProgress(std::string text);
    void endRun();
    void acceptDrops();
    void coverControls(bool covered);
    bool intercept(MSG& message);
    bool pastesAddress(const MSG& message) const;
    void takeAddress(std::string_view text);
    InputEvent::Target inputTargetOf(HWND window) const;
    void storeFocus();
    void restoreFocus();
    void followContrast();
    void repaintAll();
    void close();

    MessagePump& pump_;
    InputGate input_;
    WindowsDesktop desktop_;
    CurrentSystemColours systemColours_;
    SkinColours colours_{systemColours_};
    TransferLimits limits_;
    InternetSession session_;
    WinHttpTransfer transfer_;
    Skin skin_;
    std::string progress_;  ///< progress text of the page fetch
    OwnedFont progressFont_ = createFont(Font{});
    std::unique_ptr<Children> children_;
    std::optional<AddressDrop> addressDrop_;  ///< empty during a run
    std::optional<SystemMenu> systemMenu_;
    HWND lastFocus_ = nullptr;  ///< gets the focus back when the window becomes active again
};

}  // namespace velvox
