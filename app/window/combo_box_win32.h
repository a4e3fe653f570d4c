#pragma once

#include "app/form1/controls.h"
#include "base/owned_win32.h"
#include "base/window_win32.h"

namespace velvox {

/// The window of the site list.
class ComboBoxWindow : public SystemControl, public ControlObserver {
 public:
    ComboBoxWindow(ComboBox& model, HWND parent, int id);
    ~ComboBoxWindow() override;

    void controlChanged(ControlChange change) override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

    ComboBox& model_;
    OwnedFont font_;
};

}  // namespace velvox
