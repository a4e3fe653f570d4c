// The window of a push button: unpacks messages for the model, paints its look and shows its
// tool tip.
#pragma once

#include "base/window_win32.h"
#include "controls/is_button.h"

namespace velvox {

class isButtonWindow : public Window, public ControlView, private ButtonHost {
 public:
    /// A child window of class "isButton" whose text is the caption; it follows `model`, which
    /// must outlive it or be destroyed together with it by a handler.
    isButtonWindow(isButton& model, HWND parent, int id);
    ~isButtonWindow() override;

    void follow(Aspect aspect) override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void requestLeaveNotice() override;
    void showToolTip() override;
    void showAbout() override;
    void openAddress(std::string_view address) override;

    isButton& model_;
};

}  // namespace velvox
