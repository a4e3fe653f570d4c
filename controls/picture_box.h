#pragma once

#include <functional>

#include "base/colour.h"
#include "base/control.h"
#include "base/mouse.h"

namespace velvox {

/// Mouse events of a control that serves as a drag handle. Coordinates are in twips, relative to
/// the control.
struct MouseEvents {
    using Handler = std::function<void(MouseButton button, int shift, float x, float y)>;
    Handler MouseDown;
    Handler MouseMove;
    Handler MouseUp;
};

/// A box that holds other controls.
class PictureBox : public Control, public MouseEvents {
 public:
    using Control::Control;

    bool Enabled() const noexcept { return enabled_; }
    void Enabled(bool enabled) {
        enabled_ = enabled;
        changed(ControlChange::Enabled);
    }

    OleColour BackColor() const noexcept { return backColor_; }
    void BackColor(OleColour colour) {
        backColor_ = colour;
        changed(ControlChange::Appearance);
    }

 private:
    bool enabled_ = true;
    OleColour backColor_ = systemColour(ButtonFaceColour);
};

}  // namespace velvox
