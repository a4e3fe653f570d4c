// The owner-drawn push button: its stored settings, its visual state machine and its events. The
// Win32 layer (window, painting and tool tip) observes the button as a `ControlObserver` and serves
// it as a `ButtonHost`.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/colour.h"
#include "base/control.h"
#include "base/font.h"
#include "base/mouse.h"
#include "base/picture.h"
#include "base/property_bag.h"

namespace velvox {

enum class ButtonState : std::int8_t { Normal = 1, Hot = 2, Pressed = 3, Disabled = 4 };

/// The system library whose function reports that the pointer has left a window.
enum class Tracking : std::int8_t { None, UserInterface, CommonControls };

/// Ambient properties supplied by the container.
struct ButtonAmbient {
    bool userMode = true;  ///< false while the form is designed
    Font font;
    std::string toolTipText;  ///< default of the stored property ToolTipText
};

/// Contents of the button's tool tip. A colour without a value is the system's.
struct ButtonToolTip {
    std::string text;
    std::string title;
    int icon = 0;  ///< 0 none, 1 information, 2 warning, 3 error
    int type = 0;  ///< 1 balloon, anything else a plain box
    std::optional<Rgb> backColour;
    std::optional<Rgb> foreColour;
    bool centred = false;
};

/// The four custom colours as RGB values.
struct ButtonColours {
    Rgb back = 0;
    Rgb highlight = 0;
    Rgb font = 0;
    Rgb fontHighlight = 0;
};

/// The button's own properties and states that its picture depends on.
struct ButtonLook {
    int style = 0;
    ButtonState state = ButtonState::Normal;
    bool focused = false;     ///< the button has the focus, whether it shows it or not
    bool focusShown = false;  ///< the button has the focus and shows it (ShowFocus)
    bool customColours = false;
    ButtonColours colours;
    std::string caption;
    unsigned captionFlags = 0;  ///< DT_ flags of DrawText
    Font font;
    PicturePtr icon;
    int iconSize = 16;  ///< pixels
    int iconAlign = 0;
};

/// The stored properties of a button. The initial values are those of a button newly placed on a
/// form. The table in is_button_bag.cpp lists each property's key and defaults in stored order.
struct ButtonSettings {
    PicturePtr icon;
    int style = 0;
    std::string caption;
    int iconSize = 16;
    int captionAlign = 0;
    int iconAlign = 0;
    int nonThemeStyle = 0;
    bool enabled = true;
    bool showFocus = false;
    bool useCustomColors = false;
    OleColour backColor = 0;
    OleColour highlightColor = 0;
    OleColour fontColor = 0;
    OleColour fontHighlightColor = 0;
    std::string toolTip;
    std::string toolTipTitle;
    int toolTipIcon = 0;
    int toolTipType = 0;
    std::optional<OleColour> toolTipBackColor;
    std::optional<OleColour> toolTipForeColor;
    velvox::Font font;
    int buttonType = 0;
    bool value = false;
};

/// Services that the button's window provides.
class ButtonHost {
 public:
    virtual ~ButtonHost() = default;

    /// Requests one notification for the next time the pointer leaves the window.
    virtual void requestLeaveNotice() = 0;

    /// Recreates the tool tip from toolTipRecord().
    virtual void showToolTip() = 0;

    /// Shows the modal About box.
    virtual void showAbout() = 0;

    /// Opens a web address in the user's browser. Does nothing for any other address.
    virtual void openAddress(std::string_view address) = 0;
};

/// An event handler may destroy the button, run a nested message loop or throw. After raising an
/// event the button uses its members only if it still exists.
class isButton : public Control {
 public:
    /// Creates a button with the properties of a newly placed one. It takes its initial colours
    /// from `colours`, which must outlive the button.
    isButton(std::string_view name, const SystemColours& colours);

    /// Reads the 23 keys in their stored order. Throws TypeMismatch for a value of a wrong type.
    void ReadProperties(const PropertyBag& bag, const ButtonAmbient& ambient = {});
    void WriteProperties(PropertyBag& bag) const;

    /// Handles four messages (pointer moved or left, theme or system colours changed) before the
    /// window's default procedure does. Ignores all other messages.
    void zSubclass_Proc(unsigned message);

    void About();
    void Refresh();
    std::string_view Version() const noexcept { return "3.0"; }

    /// 0 to 10 select a painter. Any other number draws only caption and icon.
    int Style() const noexcept { return stored_.style; }
    void Style(int style) { set(&ButtonSettings::style, style); }
    const std::string& Caption() const noexcept { return stored_.caption; }
    void Caption(std::string_view text) { set(&ButtonSettings::caption, std::string(text)); }
    const PicturePtr& Icon() const noexcept { return stored_.icon; }
    void Icon(const PicturePtr& icon) { set(&ButtonSettings::icon, icon); }
    /// 0 centre, 1 left, 2 right, 3 top, 4 bottom.
    int IconAlign() const noexcept { return stored_.iconAlign; }
    void IconAlign(int align) { set(&ButtonSettings::iconAlign, align); }
    /// Edge length of the drawn icon, pixels.
    int IconSize() const noexcept { return stored_.iconSize; }
    void IconSize(int pixels) { set(&ButtonSettings::iconSize, pixels); }
    /// The same values as IconAlign. A change takes effect at the next resize.
    int CaptionAlign() const noexcept { return stored_.captionAlign; }
    void CaptionAlign(int align) { set(&ButtonSettings::captionAlign, align); }
    /// The style that replaces style 6 at run time when the system's visual styles cannot be drawn.
    int NonThemeStyle() const noexcept { return stored_.nonThemeStyle; }
    void NonThemeStyle(int style) { set(&ButtonSettings::nonThemeStyle, style); }
    bool Enabled() const noexcept { return stored_.enabled; }
    void Enabled(bool enabled) { set(&ButtonSettings::enabled, enabled); }
    bool ShowFocus() const noexcept { return stored_.showFocus; }
    void ShowFocus(bool show) { set(&ButtonSettings::showFocus, show); }
    bool UseCustomColors() const noexcept { return stored_.useCustomColors; }
    void UseCustomColors(bool use) { set(&ButtonSettings::useCustomColors, use); }
    OleColour BackColor() const noexcept { return stored_.backColor; }
    void BackColor(OleColour colour) { set(&ButtonSettings::backColor, colour); }
    OleColour HighlightColor() const noexcept { return stored_.highlightColor; }
    void HighlightColor(OleColour colour) { set(&ButtonSettings::highlightColor, colour); }
    OleColour FontColor() const noexcept { return stored_.fontColor; }
    void FontColor(OleColour colour) { set(&ButtonSettings::fontColor, colour); }
    OleColour FontHighlightColor() const noexcept { return stored_.fontHighlightColor; }
    void FontHighlightColor(OleColour colour) { set(&ButtonSettings::fontHighlightColor, colour); }
    const std::string& ToolTip() const noexcept { return stored_.toolTip; }
    void ToolTip(std::string_view text) { set(&ButtonSettings::toolTip, std::string(text)); }
    const std::string& ToolTipTitle() const noexcept { return stored_.toolTipTitle; }
    void ToolTipTitle(std::string_view title) {
        set(&ButtonSettings::toolTipTitle, std::string(title));
    }
    int ToolTipIcon() const noexcept { return stored_.toolTipIcon; }
    void ToolTipIcon(int icon) { set(&ButtonSettings::toolTipIcon, icon); }
    int ToolTipType() const noexcept { return stored_.toolTipType; }
    void ToolTipType(int type) { set(&ButtonSettings::toolTipType, type); }
    /// Colours of the tool tip. Until a value is assigned or read from a bag, the tool tip has the
    /// system's colours and these return 0; an assigned 0 is black.
    OleColour ToolTipBackColor() const noexcept { return stored_.toolTipBackColor.value_or(0); }
    void ToolTipBackColor(OleColour colour) { set(&ButtonSettings::toolTipBackColor, colour); }
    OleColour ToolTipForeColor() const noexcept { return stored_.toolTipForeColor.value_or(0); }
    void ToolTipForeColor(OleColour colour) { set(&ButtonSettings::toolTipForeColor, colour); }
    const velvox::Font& Font() const noexcept { return stored_.font; }
    void Font(const velvox::Font& font) { set(&ButtonSettings::font, font); }
    /// 0 push button, 1 toggle button.
    int ButtonType() const noexcept { return stored_.buttonType; }
    void ButtonType(int type) { set(&ButtonSettings::buttonType, type); }
    /// Toggled state of a toggle button.
    bool Value() const noexcept { return stored_.value; }
    void Value(bool on) { set(&ButtonSettings::value, on); }

    void OpenLink(std::string_view address);

    std::function<void()> Click;
    std::function<void()> MouseEnter;
    std::function<void()> MouseLeave;

    /// Notifies the container that `property` has been set.
    std::function<void(std::string_view property)> PropertyChanged;

    // Input from the button's window.
    void mouseDown(MouseButton button);
    void mouseUp(MouseButton button);
    /// Called for a click, after the mouseUp() that completes it.
    void click();
    void doubleClick();
    /// `code` is a virtual key code. All keys except Space (32) are ignored.
    void keyDown(int code);
    void keyUp(int code);
    void keyPress(char character);
    /// Raises Click exactly once, whichever mouse button was used last. Called for Enter, a
    /// mnemonic and BM_CLICK.
    void activate();
    void gotFocus();
    void lostFocus();
    void pointerMoved();
    void pointerLeft();
    /// Called while the left mouse button is held; `over` is true while the pointer is over the
    /// button. A button that the pointer has left does not look pressed, because a release then
    /// does not click it.
    void pointerDragged(bool over);
    /// Called when no release will follow a press, because the focus or the capture moved to
    /// another window or the button was hidden or disabled. Ends the pressed look, and the hot look
    /// that remains after a key press.
    void pressCancelled();
    /// Called when the system's visual styles could not be drawn. At run time, Style then takes the
    /// value of NonThemeStyle.
    void themeRefused();

    // Queries for the button's window and painters.
    /// The state to draw, which also depends on design time, Enabled and a toggle button's Value.
    ButtonState visualState() const noexcept;
    bool hasFocus() const noexcept { return hasFocus_; }
    bool mouseInside() const noexcept { return mouseInside_; }
    bool userMode() const noexcept { return userMode_; }
    Tracking tracking() const noexcept { return tracking_; }
    void tracking(Tracking available);
    unsigned captionFlags() const noexcept { return captionFlags_; }
    ButtonToolTip toolTipRecord() const;
    ButtonLook look() const;
    const SystemColours& systemColours() const noexcept { return *colours_; }

    /// `host` may be null. The button does not own it.
    void setHost(ButtonHost* host) noexcept { host_ = host; }

    /// Expires when the button is destroyed. Callers check it after raising an event.
    std::weak_ptr<const void> lifetime() const noexcept { return alive_; }

 protected:
    /// Enlarges a side that is shorter than 300 twips.
    void resized() override;

 private:
    template <class T>
    void set(T ButtonSettings::*member, const std::type_identity_t<T>& value);
    void notify(std::string_view property, ControlChange change);
    void enter(ButtonState state);
    bool raise(const std::function<void()>& event);
    ButtonState restingState() const noexcept {
        return mouseInside_ ? ButtonState::Hot : ButtonState::Normal;
    }
    Rgb rgbOf(int systemIndex) const { return colours_->colour(systemIndex); }

    const SystemColours* colours_;
    ButtonHost* host_ = nullptr;
    std::shared_ptr<const void> alive_ = std::make_shared<char>();

    ButtonSettings stored_;

    bool userMode_ = true;
    ButtonState state_ = ButtonState::Normal;
    bool hasFocus_ = false;
    bool mouseInside_ = false;
    bool draggedOff_ = false;
    MouseButton lastMouseButton_ = MouseButton::None;
    Tracking tracking_ = Tracking::UserInterface;
    unsigned captionFlags_;
};

}  // namespace velvox
