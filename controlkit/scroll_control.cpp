#include "controlkit/scroll_control.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace velvox {
namespace {

constexpr int wheelNotch = 120;
constexpr std::int16_t controlKey = 2;
constexpr std::int16_t altKey = 4;

bool hasControl(MouseState state) {
    return (state.shift & controlKey) != 0;
}

RepeatTimer timerOf(ScrollPart part) {
    return isArrow(part) ? RepeatTimer::Arrow : RepeatTimer::Track;
}

}  // namespace

void ScrollControl::InitProperties() {
    host_.stopTimer(RepeatTimer::Arrow);
    host_.stopTimer(RepeatTimer::Track);
    tsPrivateScroll::InitProperties();
}

void ScrollControl::resize(int length, int thickness, int dpi) {
    length_ = length;
    thickness_ = thickness;
    dpi_ = dpi;
    host_.repaint();
}

ScrollGeometry ScrollControl::geometry() const {
    const ScrollGeometry resting({length_, scaled(arrowLength(), dpi_),
                                  scaled(scrollSizes.minThumb, dpi_), Min(), Max(), LargeChange(),
                                  Value()});
    // A dragged thumb is drawn under the pointer, even if Value() alone would place it elsewhere.
    const bool dragged = held_ == ScrollPart::Thumb && !BlockValue();
    return dragged ? resting.withThumbAt(shownThumb_) : resting;
}

bool ScrollControl::contains(BarPoint at) const {
    return at.along >= 0 && at.along < length_ && at.across >= 0 && at.across < thickness_;
}

ScrollPart ScrollControl::partAt(BarPoint at) const {
    return contains(at) ? geometry().hit(at.along) : ScrollPart::None;
}

ScrollPart ScrollControl::partUnderPointer() const {
    return partAt(pointer_);
}

PartState ScrollControl::stateOf(ScrollPart part) const {
    if (part == ScrollPart::None) return PartState::None;
    if (held_ != ScrollPart::None) {
        const bool down =
            part == held_ && (held_ == ScrollPart::Thumb || partUnderPointer() == held_);
        return down ? PartState::Down : PartState::None;
    }
    return inside_ && partUnderPointer() == part ? PartState::Hover : PartState::None;
}

void ScrollControl::movePointer(BarPoint at) {
    const ScrollPart before = partUnderPointer();
    pointer_ = at;
    if (partUnderPointer() != before) host_.repaint();
}

void ScrollControl::mouseMove(BarPoint at, MouseState state) {
    if (!Enabled()) return;
    const bool wasHeld = held_ != ScrollPart::None;
    movePointer(at);
    if (!inside_ && contains(at)) {
        inside_ = true;
        host_.repaint();
        launch(MouseHover);
    }
    // The leave notification is requested on every move, so that the next move repeats a lost
    // request.
    if (!wasHeld) host_.requestLeave();
    launch(MouseMove, state.button, state.shift, hasControl(state));
    if (held_ == ScrollPart::Thumb) drag();
}

void ScrollControl::mouseDown(BarPoint at, MouseState state) {
    if (!Enabled()) return;
    movePointer(at);
    launch(MouseDown, state.button, state.shift, hasControl(state));
    if (state.button == MouseButton::Left) press(at);
}

void ScrollControl::mouseDoubleClick(BarPoint at, MouseState state) {
    if (!Enabled()) return;
    movePointer(at);
    launch(MouseDblClick, state.button, state.shift, hasControl(state));
    if (state.button == MouseButton::Left) press(at);
}

void ScrollControl::press(BarPoint at) {
    // The handler of the previous event may have disabled the bar.
    if (!Enabled() || held_ != ScrollPart::None) return;
    const ScrollPart part = partAt(at);
    if (part == ScrollPart::None) return;
    const ScrollGeometry parts = geometry();
    dragStartThumb_ = shownThumb_ = parts.thumb().start;
    grabOffset_ = at.along - dragStartThumb_;
    dragStartValue_ = Value();
    held_ = part;
    host_.capture(true);
    host_.repaint();
    if (part == ScrollPart::Thumb) return;
    stepHeldPart();
    // A handler that the step has called may have ended the press.
    if (held_ != part || MouseInterval() == 0) return;
    timerPeriod_ = std::max(MouseInterval(), scrollSizes.firstRepeatMs);
    host_.startTimer(timerOf(part), timerPeriod_);
}

void ScrollControl::tick(RepeatTimer timer) {
    const bool wanted = (isArrow(held_) || isTrack(held_)) && timerOf(held_) == timer;
    if (!wanted || MouseInterval() == 0) {
        host_.stopTimer(timer);
        return;
    }
    if (timerPeriod_ != MouseInterval()) {
        timerPeriod_ = MouseInterval();
        host_.startTimer(timer, timerPeriod_);
    }
    // No step while the pointer is outside the held part, nor once the thumb has reached the
    // pointer.
    if (partUnderPointer() == held_) stepHeldPart();
}

void ScrollControl::stepHeldPart() {
    switch (held_) {
        case ScrollPart::LessArrow: return moveTo(Value() - SmallChange());
        case ScrollPart::MoreArrow: return moveTo(Value() + SmallChange());
        case ScrollPart::TrackBefore: return moveTo(Value() - LargeChange());
        case ScrollPart::TrackAfter: return moveTo(Value() + LargeChange());
        case ScrollPart::Thumb:
        case ScrollPart::None: return;
    }
}

void ScrollControl::drag() {
    const int reach = scrollSizes.snapBackThicknesses * thickness_;
    const bool strayed = pointer_.across < -reach || pointer_.across >= thickness_ + reach;
    const ScrollGeometry parts = geometry();
    const int thumb = strayed ? dragStartThumb_ : parts.clampThumb(pointer_.along - grabOffset_);
    if (thumb == shownThumb_) return;
    shownThumb_ = thumb;
    host_.repaint();
    moveTo(thumb == dragStartThumb_ ? dragStartValue_ : parts.valueAt(thumb));
}

void ScrollControl::moveTo(FixedPoint value) {
    const FixedPoint before = Value();
    Value(value);
    if (Value() != before && Scroll) Scroll();
}

void ScrollControl::mouseUp(BarPoint at, MouseState state) {
    if (!Enabled()) return;
    movePointer(at);
    const bool ends = state.button == MouseButton::Left && held_ != ScrollPart::None;
    if (ends) endPress();
    launch(MouseUp, state.button, state.shift, hasControl(state));
    if (ends) settleHover();
}

void ScrollControl::endPress() {
    // held_ is cleared first, because releasing the capture calls captureLost().
    if (std::exchange(held_, ScrollPart::None) == ScrollPart::None) return;
    host_.stopTimer(RepeatTimer::Arrow);
    host_.stopTimer(RepeatTimer::Track);
    host_.capture(false);
    host_.repaint();
}

void ScrollControl::captureLost() {
    if (held_ == ScrollPart::None) return;
    endPress();
    settleHover();
}

void ScrollControl::settleHover() {
    if (!inside_) return;
    // WM_MOUSELEAVE was ignored during the press: request it again.
    if (contains(pointer_))
        host_.requestLeave();
    else
        endHover();
}

void ScrollControl::mouseLeave() {
    // Some systems send WM_MOUSELEAVE during a press. It is ignored, because settleHover() ends the
    // hover after the press.
    if (held_ == ScrollPart::None) endHover();
}

void ScrollControl::endHover() {
    if (!std::exchange(inside_, false)) return;
    wheelRest_ = 0;
    host_.repaint();
    launch(MouseLeave);
}

void ScrollControl::hidden() {
    endPress();
    endHover();
}

void ScrollControl::enabledChanged() {
    if (!Enabled()) hidden();
    host_.enable(Enabled());
}

bool ScrollControl::wheel(int delta) {
    if (!takesWheel()) return false;
    if (held_ != ScrollPart::None) return true;
    if ((delta < 0) != (wheelRest_ < 0)) wheelRest_ = 0;
    wheelRest_ += delta;
    while (std::abs(wheelRest_) >= wheelNotch) {
        const std::int16_t direction = wheelRest_ > 0 ? 1 : -1;
        wheelRest_ -= direction * wheelNotch;
        launch(MouseWheel, direction);
        if (takesWheel()) moveTo(Value() - direction * WheelChange());
        if (!takesWheel()) wheelRest_ = 0;  // a handler has disabled the bar or its wheel
    }
    return true;
}

void ScrollControl::keyDown(std::int16_t code, std::int16_t shift) {
    if (!Enabled()) return;
    launch(KeyDown, code, shift);
    // Keys with Alt are left to the system.
    if (!Enabled() || held_ != ScrollPart::None || (shift & altKey) != 0) return;
    switch (code) {
        case ScrollKeys::left:
        case ScrollKeys::up: return moveTo(Value() - SmallChange());
        case ScrollKeys::right:
        case ScrollKeys::down: return moveTo(Value() + SmallChange());
        case ScrollKeys::pageUp: return moveTo(Value() - LargeChange());
        case ScrollKeys::pageDown: return moveTo(Value() + LargeChange());
        case ScrollKeys::home: return moveTo(Min());
        case ScrollKeys::end: return moveTo(Max());
        default: return;
    }
}

void ScrollControl::keyPress(std::int16_t character) {
    if (Enabled()) launch(KeyPress, character);
}

void ScrollControl::keyUp(std::int16_t code, std::int16_t shift) {
    if (Enabled()) launch(KeyUp, code, shift);
}

void ScrollControl::focus(bool has) {
    hasFocus_ = has;
    wheelRest_ = 0;
    host_.repaint();
}

}  // namespace velvox
