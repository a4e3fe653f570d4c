#include "base/control.h"

#include "base/runtime_failure.h"

namespace velvox {

void Control::Left(int twips) {
    Move({twips, bounds_.top, bounds_.width, bounds_.height});
}
void Control::Top(int twips) {
    Move({bounds_.left, twips, bounds_.width, bounds_.height});
}
void Control::Width(int twips) {
    Move({bounds_.left, bounds_.top, twips, bounds_.height});
}
void Control::Height(int twips) {
    Move({bounds_.left, bounds_.top, bounds_.width, twips});
}

void Control::Move(const Bounds& bounds) {
    if (bounds.width < 0 || bounds.height < 0)
        throw RuntimeFailure(Fault::InvalidProperty, "The size of " + name_ + " is negative");
    if (bounds == bounds_) return;
    const bool newSize = bounds.width != bounds_.width || bounds.height != bounds_.height;
    bounds_ = bounds;
    if (newSize) resized();
    changed(ControlChange::Bounds);
}

void Control::Visible(bool visible) {
    visible_ = visible;
    changed(ControlChange::Visible);
}

void Control::changed(ControlChange change) {
    if (observer_) observer_->controlChanged(change);
}

}  // namespace velvox
