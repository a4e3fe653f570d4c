#include "controls/button/is_button.h"

#include <algorithm>

#include "controls/button/is_button_layout.h"

namespace velvox {
namespace {

constexpr int keySpace = 32;
constexpr int toggleType = 1;
constexpr int styleWithoutDesignTimeHover = 5;

// Numbers of Windows messages; is_button_win32.cpp asserts that they are correct.
constexpr unsigned mouseMoveMessage = 512;
constexpr unsigned mouseLeaveMessage = 675;
constexpr unsigned themeChangedMessage = 794;
constexpr unsigned colourChangeMessage = 21;

}  // namespace

isButton::isButton(std::string_view name, const SystemColours& colours)
    : Control(name), colours_(&colours), captionFlags_(firstCaptionFlags) {
    stored_.caption = name;
    stored_.backColor = static_cast<OleColour>(rgbOf(ButtonFaceColour));
    stored_.highlightColor = static_cast<OleColour>(rgbOf(HighlightColour));
    stored_.fontColor = stored_.fontHighlightColor =
        static_cast<OleColour>(rgbOf(ButtonTextColour));
}

// --- properties -----------------------------------------------------------------------------

void isButton::notify(std::string_view property, ControlChange change) {
    if (PropertyChanged) {
        const std::weak_ptr<const void> alive = alive_;
        const auto handler = PropertyChanged;
        handler(property);
        if (alive.expired()) return;
    }
    changed(change);
}

void isButton::About() {
    if (host_) host_->showAbout();
}

void isButton::Refresh() {
    changed(ControlChange::Appearance);
}

void isButton::OpenLink(std::string_view address) {
    if (host_) host_->openAddress(address);
}

void isButton::resized() {
    const Bounds now = bounds();
    if (now.width < minButtonTwips || now.height < minButtonTwips) {
        Move({now.left, now.top, std::max(now.width, minButtonTwips),
              std::max(now.height, minButtonTwips)});
        return;
    }
    if (const unsigned flags = captionFlagsOf(stored_.captionAlign)) captionFlags_ = flags;
}

// --- events ---------------------------------------------------------------------------------

void isButton::enter(ButtonState state) {
    state_ = state;
    changed(ControlChange::Appearance);
}

// Returns false when the handler has destroyed the button. A copy of the handler runs, because
// destroying the button also destroys the function to which `event` refers.
bool isButton::raise(const std::function<void()>& event) {
    if (!event) return true;
    const std::weak_ptr<const void> alive = alive_;
    const auto handler = event;
    handler();
    return !alive.expired();
}

void isButton::zSubclass_Proc(unsigned message) {
    switch (message) {
        case mouseMoveMessage: pointerMoved(); break;
        case mouseLeaveMessage: pointerLeft(); break;
        case themeChangedMessage:
        case colourChangeMessage: Refresh(); break;
        default: break;
    }
}

void isButton::mouseDown(MouseButton button) {
    if (button != MouseButton::Left || !stored_.enabled) return;
    draggedOff_ = false;
    enter(ButtonState::Pressed);
}

void isButton::mouseUp(MouseButton button) {
    lastMouseButton_ = button;
    if (button != MouseButton::Left || !stored_.enabled) return;
    draggedOff_ = false;
    enter(stored_.buttonType != toggleType || stored_.value ? ButtonState::Hot
                                                            : ButtonState::Pressed);
}

void isButton::click() {
    if (lastMouseButton_ != MouseButton::Left || !stored_.enabled) return;
    if (stored_.buttonType == toggleType) {
        stored_.value = !stored_.value;
        enter(ButtonState::Hot);
    }
    raise(Click);
}

void isButton::doubleClick() {
    if (lastMouseButton_ == MouseButton::Left) mouseDown(MouseButton::Left);
}

void isButton::keyDown(int code) {
    if (code == keySpace) mouseDown(MouseButton::Left);
}

void isButton::keyUp(int code) {
    if (code == keySpace && stored_.enabled) mouseUp(MouseButton::Left);
}

// Space raises Click, and click() raises Click a second time when the last mouse button was the
// left one. Existing programs rely on both events.
void isButton::keyPress(char character) {
    if (character != keySpace || !stored_.enabled) return;
    if (raise(Click)) click();
}

void isButton::activate() {
    if (!stored_.enabled) return;
    if (stored_.buttonType == toggleType) {
        stored_.value = !stored_.value;
        enter(restingState());
    }
    raise(Click);
}

void isButton::gotFocus() {
    hasFocus_ = true;
    changed(ControlChange::Appearance);
}

void isButton::lostFocus() {
    hasFocus_ = false;
    changed(ControlChange::Appearance);
}

void isButton::pointerMoved() {
    if (mouseInside_) return;
    mouseInside_ = true;
    if (host_) host_->requestLeaveNotice();
    enter(ButtonState::Hot);
    if (raise(MouseEnter) && host_) host_->showToolTip();
}

void isButton::pointerLeft() {
    mouseInside_ = false;
    enter(ButtonState::Normal);
    raise(MouseLeave);
}

void isButton::pointerDragged(bool over) {
    if (state_ != ButtonState::Pressed || draggedOff_ == !over) return;
    draggedOff_ = !over;
    changed(ControlChange::Appearance);
}

void isButton::pressCancelled() {
    if (state_ == restingState()) return;
    draggedOff_ = false;
    enter(restingState());
}

void isButton::themeRefused() {
    if (userMode_) stored_.style = stored_.nonThemeStyle;
}

void isButton::tracking(Tracking available) {
    tracking_ = available;
}

// --- visual state --------------------------------------------------------------------------

ButtonState isButton::visualState() const noexcept {
    if (!stored_.enabled) return ButtonState::Disabled;
    if (stored_.buttonType == toggleType && stored_.value) return ButtonState::Pressed;
    if (!userMode_ && stored_.style != styleWithoutDesignTimeHover) return ButtonState::Hot;
    const bool isOff = state_ == ButtonState::Pressed && draggedOff_;
    const ButtonState state = isOff ? restingState() : state_;
    // Without notifications that the pointer has left, the hot look would never end.
    if (state == ButtonState::Hot && tracking_ == Tracking::None) return ButtonState::Normal;
    return state;
}

ButtonToolTip isButton::toolTipRecord() const {
    ButtonToolTip record;
    record.text = stored_.toolTip;
    record.title = stored_.toolTipTitle;
    record.icon = stored_.toolTipIcon;
    record.type = stored_.toolTipType;
    if (stored_.toolTipBackColor)
        record.backColour = translate(*stored_.toolTipBackColor, *colours_);
    if (stored_.toolTipForeColor)
        record.foreColour = translate(*stored_.toolTipForeColor, *colours_);
    return record;
}

ButtonLook isButton::look() const {
    const auto rgbFrom = [&](OleColour colour) { return translate(colour, *colours_); };
    ButtonLook look;
    look.style = stored_.style;
    look.state = visualState();
    look.focused = hasFocus_;
    look.focusShown = hasFocus_ && stored_.showFocus;
    look.customColours = stored_.useCustomColors;
    look.colours = {rgbFrom(stored_.backColor), rgbFrom(stored_.highlightColor),
                    rgbFrom(stored_.fontColor), rgbFrom(stored_.fontHighlightColor)};
    look.caption = stored_.caption;
    look.captionFlags = captionFlags_;
    look.font = stored_.font;
    look.icon = stored_.icon;
    look.iconSize = stored_.iconSize;
    look.iconAlign = stored_.iconAlign;
    return look;
}

}  // namespace velvox
