#include "base/control.h"

#include "base/runtime_failure.h"

namespace velvox {

void Control::Left(int twips) {
    Move({twips, place_.top, place_.width, place_.height});
}
void Control::Top(int twips) {
    Move({place_.left, twips, place_.width, place_.height});
}
void Control::Width(int twips) {
    Move({place_.left, place_.top, twips, place_.height});
}
void Control::Height(int twips) {
    Move({place_.left, place_.top, place_.width, twips});
}

void Control::Move(const Place& place) {
    if (place.width < 0 || place.height < 0)
        throw RuntimeFailure(Fault::InvalidProperty, "The size of " + name_ + " is negative");
    if (place == place_) return;
    const bool newSize = place.width != place_.width || place.height != place_.height;
    place_ = place;
    if (newSize) resized();
    changed(Aspect::Place);
}

void Control::Visible(bool visible) {
    visible_ = visible;
    changed(Aspect::Visible);
}

void Control::changed(Aspect aspect) {
    if (view_) view_->follow(aspect);
}

}  // namespace velvox
