// XPTextBox: a text box with a flat one-pixel frame and a narrow light margin.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "base/property_bag.h"
#include "base/twips.h"
#include "controls/picture_box.h"
#include "controls/text_box/text_box.h"

namespace velvox {

/// One straight line of a drawing, in twips.
struct DrawnLine {
    int x1, y1, x2, y2;
    Rgb colour;

    bool operator==(const DrawnLine&) const = default;
};

class XPTextBox : public Control {
 public:
    /// `twipsPerPixel` is the size of a screen pixel: the frame is one pixel wide, and the inner
    /// box is inset by three pixels.
    explicit XPTextBox(std::string_view name, int twipsPerPixel = designTwipsPerPixel);

    /// Called when the control is first placed on a form: it shows its name in Verdana and becomes
    /// 330 twips high.
    void InitProperties();
    /// A stored alignment other than 0, 1 or 2 counts as 0. Throws TypeMismatch or InvalidProperty
    /// for any other invalid value.
    void ReadProperties(const PropertyBag& bag, const velvox::Font& ambient = {});
    void WriteProperties(PropertyBag& bag, const velvox::Font& ambient = {}) const;

    /// Lays out Pic and MyTxt.
    void RePos();

    /// 0 left, 1 right, 2 centred. A value above 2 becomes 0; a negative value throws
    /// InvalidProperty.
    std::int16_t Alignment() const { return MyTxt.Alignment(); }
    void Alignment(std::int16_t alignment);
    bool Enabled() const { return MyTxt.Enabled(); }
    void Enabled(bool enabled) { MyTxt.Enabled(enabled), notify("Enabled"); }
    const velvox::Font& Font() const { return MyTxt.font(); }
    void Font(const velvox::Font& font) { MyTxt.font(font), notify("Font"); }
    OleColour BackColor() const { return MyTxt.BackColor(); }
    void BackColor(OleColour colour) { MyTxt.BackColor(colour), notify("BackColor"); }
    OleColour ForeColor() const { return MyTxt.ForeColor(); }
    void ForeColor(OleColour colour) { MyTxt.ForeColor(colour), notify("ForeColor"); }
    bool Locked() const { return MyTxt.Locked(); }
    void Locked(bool locked);
    std::int32_t MaxLength() const { return MyTxt.MaxLength(); }
    void MaxLength(std::int32_t length) { MyTxt.MaxLength(length), notify("MaxLength"); }
    const std::string& PasswordChar() const { return MyTxt.PasswordChar(); }
    void PasswordChar(std::string_view character) {
        MyTxt.PasswordChar(character), notify("PasswordChar");
    }
    std::int32_t SelStart() const { return MyTxt.SelStart(); }
    void SelStart(std::int32_t start) { MyTxt.SelStart(start), notify("SelStart"); }
    std::string SelText() const { return MyTxt.SelText(); }
    void SelText(std::string_view text) { MyTxt.SelText(text), notify("SelText"); }
    std::int32_t SelLength() const { return MyTxt.SelLength(); }
    void SelLength(std::int32_t length) { MyTxt.SelLength(length), notify("SelLength"); }
    const std::string& Text() const { return MyTxt.Text(); }
    void Text(std::string_view text) { MyTxt.Text(text), notify("Text"); }
    const std::string& ToolTipText() const { return MyTxt.ToolTipText(); }
    void ToolTipText(std::string_view text) { MyTxt.ToolTipText(text), notify("ToolTipText"); }
    const std::string& DataFields() const noexcept { return dataFields_; }
    void DataFields(std::string_view name);

    /// Selects the whole text and moves the keyboard focus into the box.
    void Focus();

    /// The number at the start of the text, 0 when there is none. Throws Overflow for a number that
    /// a double cannot hold.
    double GetValue() const;

    std::function<void()> Change, Click, DblClick;
    std::function<void(std::int16_t& keyAscii)> KeyPress;
    std::function<void(std::int16_t button, std::int16_t shift, float x, float y)> MouseMove;

    /// Notifies the container that the property of this name has been set.
    std::function<void(std::string_view)> PropertyChanged;

    /// The lines of the frame that was drawn last.
    const std::array<DrawnLine, 4>& frame() const noexcept { return frame_; }

    PictureBox Pic{"Pic"};
    TextBox MyTxt{"MyTxt"};

    enum class Look : std::int16_t { Normal = 0, Disabled = 1, ReadOnly = 2 };

    /// The bounds of MyTxt in a window whose client area is `width` by `height` pixels. Empty
    /// or inverted when there is no room.
    Rect textBounds(int width, int height, int dpi) const;

    /// Draws the frame and sets the look of the inner box. The control itself uses only
    /// Look::Normal.
    void PaintFrame(OleColour margin, Look look);

 protected:
    void resized() override;

 private:
    void notify(std::string_view property);

    int twipsPerPixel_;
    std::string dataFields_;
    std::array<DrawnLine, 4> frame_{};
};

}  // namespace velvox
