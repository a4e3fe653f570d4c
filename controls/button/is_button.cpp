#include "controls/button/is_button.h"

#include <algorithm>

#include "controls/button/is_button_layout.h"

namespace velvox {
namespace {

constexpr int keySpace = 32;
constexpr int toggleType = 1;
constexpr int undisturbedStyle = 5;  // the one style that looks the same while designed

// Message numbers of the subclass; the window's half asserts that they are the system's.
constexpr unsigned mouseMoveMessage = 512;
constexpr unsigned mouseLeaveMessage = 675;
constexpr unsigned themeChangedMessage = 794;
constexpr unsigned colourChangeMessage = 21;

}  // namespace

isButton::isButton(std::string_view name, const SystemColours& colours)
    : Control(name),
      colours_(&colours),
      caption_(name),
      backColor_(static_cast<OleColour>(rgbOf(ButtonFaceColour))),
      highlightColor_(static_cast<OleColour>(rgbOf(HighlightColour))),
      fontColor_(static_cast<OleColour>(rgbOf(ButtonTextColour))),
      fontHighlightColor_(fontColor_),
      captionFlags_(firstCaptionFlags) {}

// --- properties -----------------------------------------------------------------------------

template <class Held, class Given>
void isButton::set(Held& held, const Given& given, std::string_view property, Aspect aspect) {
    held = given;
    if (PropertyChanged) {
        const std::weak_ptr<const void> alive = alive_;
        const auto notify = PropertyChanged;
        notify(property);
        if (alive.expired()) return;
    }
    changed(aspect);
}

void isButton::Style(int style) {
    set(style_, style, "Style");
}
void isButton::Caption(std::string_view text) {
    set(caption_, text, "Caption", Aspect::Text);
}
void isButton::Icon(const PicturePtr& icon) {
    set(icon_, icon, "Icon");
}
void isButton::IconAlign(int align) {
    set(iconAlign_, align, "IconAlign");
}
void isButton::IconSize(int pixels) {
    set(iconSize_, pixels, "IconSize");
}
void isButton::CaptionAlign(int align) {
    set(captionAlign_, align, "CaptionAlign");
}
void isButton::NonThemeStyle(int style) {
    set(nonThemeStyle_, style, "NonThemeStyle");
}
void isButton::Enabled(bool enabled) {
    set(enabled_, enabled, "Enabled", Aspect::Enabled);
}
void isButton::ShowFocus(bool show) {
    set(showFocus_, show, "ShowFocus");
}
void isButton::UseCustomColors(bool use) {
    set(useCustomColors_, use, "UseCustomColors");
}
void isButton::BackColor(OleColour colour) {
    set(backColor_, colour, "BackColor");
}
void isButton::HighlightColor(OleColour colour) {
    set(highlightColor_, colour, "HighlightColor");
}
void isButton::FontColor(OleColour colour) {
    set(fontColor_, colour, "FontColor");
}
void isButton::FontHighlightColor(OleColour colour) {
    set(fontHighlightColor_, colour, "FontHighlightColor");
}
void isButton::ToolTip(std::string_view text) {
    set(toolTip_, text, "ToolTipText");
}
void isButton::ToolTipTitle(std::string_view title) {
    set(toolTipTitle_, title, "TooltipTitle");
}
void isButton::ToolTipIcon(int icon) {
    set(toolTipIcon_, icon, "TooltipIcon");
}
void isButton::ToolTipType(int type) {
    set(toolTipType_, type, "ToolTipType");
}
void isButton::ToolTipBackColor(OleColour colour) {
    toolTipBackColorSet_ = true;
    set(toolTipBackColor_, colour, "ToolTipBackColor");
}
void isButton::ToolTipForeColor(OleColour colour) {
    toolTipForeColorSet_ = true;
    set(toolTipForeColor_, colour, "ToolTipForeColor");
}
void isButton::Font(const velvox::Font& font) {
    set(font_, font, "Font");
}
void isButton::ButtonType(int type) {
    set(buttonType_, type, "ButtonType");
}
void isButton::Value(bool on) {
    set(value_, on, "Value");
}

void isButton::About() {
    if (host_) host_->showAbout();
}

void isButton::Refresh() {
    changed(Aspect::Face);
}

void isButton::OpenLink(std::string_view address) {
    if (host_) host_->openAddress(address);
}

void isButton::resized() {
    const Place now = place();
    if (now.width < leastButtonTwips || now.height < leastButtonTwips) {
        Move({now.left, now.top, std::max(now.width, leastButtonTwips),
              std::max(now.height, leastButtonTwips)});
        return;
    }
    if (const unsigned flags = captionFlagsOf(captionAlign_)) captionFlags_ = flags;
}

// --- events ---------------------------------------------------------------------------------

void isButton::enter(ButtonState state) {
    state_ = state;
    changed(Aspect::Face);
}

// False when the handler has destroyed the button. The copy outlives the member it came from.
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
    if (button != MouseButton::Left || !enabled_) return;
    draggedOff_ = false;
    enter(ButtonState::Pressed);
}

void isButton::mouseUp(MouseButton button) {
    lastMouseButton_ = button;
    if (button != MouseButton::Left || !enabled_) return;
    draggedOff_ = false;
    enter(buttonType_ != toggleType || value_ ? ButtonState::Hot : ButtonState::Pressed);
}

void isButton::click() {
    if (lastMouseButton_ != MouseButton::Left || !enabled_) return;
    if (buttonType_ == toggleType) {
        value_ = !value_;
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
    if (code == keySpace && enabled_) mouseUp(MouseButton::Left);
}

// Space raises Click by itself and then runs the click step, which raises it once more when the
// last mouse button was the left one; stored programs count on both.
void isButton::keyPress(char character) {
    if (character != keySpace || !enabled_) return;
    if (raise(Click)) click();
}

void isButton::activate() {
    if (!enabled_) return;
    if (buttonType_ == toggleType) {
        value_ = !value_;
        enter(restingState());
    }
    raise(Click);
}

void isButton::gotFocus() {
    hasFocus_ = true;
    changed(Aspect::Face);
}

void isButton::lostFocus() {
    hasFocus_ = false;
    changed(Aspect::Face);
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
    changed(Aspect::Face);
}

void isButton::pressCancelled() {
    if (state_ == restingState()) return;
    draggedOff_ = false;
    enter(restingState());
}

void isButton::themeRefused() {
    if (userMode_) style_ = nonThemeStyle_;
}

void isButton::tracking(Tracking available) {
    tracking_ = available;
}

// --- what is shown --------------------------------------------------------------------------

ButtonState isButton::visualState() const noexcept {
    if (!enabled_) return ButtonState::Disabled;
    if (buttonType_ == toggleType && value_) return ButtonState::Pressed;
    if (!userMode_ && style_ != undisturbedStyle) return ButtonState::Hot;
    const bool isOff = state_ == ButtonState::Pressed && draggedOff_;
    const ButtonState state = isOff ? restingState() : state_;
    // Without leave notifications nothing would end a hot look.
    if (state == ButtonState::Hot && tracking_ == Tracking::None) return ButtonState::Normal;
    return state;
}

ButtonToolTip isButton::toolTipRecord() const {
    ButtonToolTip record;
    record.text = toolTip_;
    record.title = toolTipTitle_;
    record.icon = toolTipIcon_;
    record.type = toolTipType_;
    if (toolTipBackColorSet_) record.backColour = translate(toolTipBackColor_, *colours_);
    if (toolTipForeColorSet_) record.foreColour = translate(toolTipForeColor_, *colours_);
    return record;
}

ButtonLook isButton::look() const {
    const auto rgbFrom = [&](OleColour colour) { return translate(colour, *colours_); };
    ButtonLook look;
    look.style = style_;
    look.state = visualState();
    look.focused = hasFocus_;
    look.focusShown = hasFocus_ && showFocus_;
    look.userMode = userMode_;
    look.customColours = useCustomColors_;
    look.colours = {rgbFrom(backColor_), rgbFrom(highlightColor_), rgbFrom(fontColor_),
                    rgbFrom(fontHighlightColor_)};
    look.caption = caption_;
    look.captionFlags = captionFlags_;
    look.font = font_;
    look.icon = icon_;
    look.iconSize = iconSize_;
    look.iconAlign = iconAlign_;
    return look;
}

}  // namespace velvox
