#pragma once

#include "app/form1/form1_design.h"
#include "app/window/skin_win32.h"
#include "base/owned_win32.h"
#include "base/window_win32.h"

namespace velvox {

/// The window of a label: a STATIC that draws its caption on its parent's background. A link takes
/// the focus and can also be pressed with Enter or Space.
class LabelWindow : public SystemControl, public ControlObserver {
 public:
    /// `kind` must be a kind of label. `skin` supplies a legible colour for the caption.
    LabelWindow(Label& model, HWND parent, int id, ControlKind kind, const Skin& skin);
    ~LabelWindow() override;

    void controlChanged(ControlChange change) override;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void release(POINT at);
    void paint(HDC target);
    void passMouse(const MouseEvents::Handler& handler, WPARAM keys, LPARAM at) const;

    Label& model_;
    ControlKind kind_;
    const Skin& skin_;
    OwnedFont font_;
    bool pressed_ = false;  ///< the left button was pressed on the link and is still held
};

}  // namespace velvox
