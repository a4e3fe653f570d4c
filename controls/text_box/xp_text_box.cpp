#include "controls/text_box/xp_text_box.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/runtime_failure.h"
#include "base/stored_value.h"

namespace velvox {
namespace {

constexpr Rgb frameColour = rgb(127, 157, 185);
constexpr Rgb marginColour = rgb(240, 232, 224);
constexpr Rgb normalBack = 0xFFFFFF;
constexpr Rgb disabledBack = rgb(235, 235, 228);
constexpr Rgb disabledText = rgb(161, 161, 146);
constexpr int insetPixels = 3;
constexpr int newInstanceHeight = 330;  // twips

// Calls `visit` with key, getter, setter and default of each property of the inner box, in stored
// order. Alignment is stored before these properties, DataFields after them.
template <class Visit>
void eachInnerProperty(const Font& ambient, Visit visit) {
    using T = TextBox;
    visit("BackColor", &T::BackColor, &T::BackColor, systemColour(WindowColour));
    visit("Enabled", &T::Enabled, &T::Enabled, true);
    visit("Font", &T::font, &T::font, ambient);
    visit("ForeColor", &T::ForeColor, &T::ForeColor, systemColour(WindowTextColour));
    visit("Locked", &T::Locked, &T::Locked, false);
    visit("MaxLength", &T::MaxLength, &T::MaxLength, std::int32_t{0});
    visit("PasswordChar", &T::PasswordChar, &T::PasswordChar, std::string());
    visit("SelStart", &T::SelStart, &T::SelStart, std::int32_t{0});
    visit("SelText", &T::SelText, &T::SelText, std::string());
    visit("SelLength", &T::SelLength, &T::SelLength, std::int32_t{0});
    visit("Text", &T::Text, &T::Text, std::string("Text1"));
    visit("ToolTipText", &T::ToolTipText, &T::ToolTipText, std::string());
}

struct StoredReader {
    TextBox& box;
    const PropertyBag& bag;

    template <class Got, class Set, class Value>
    void operator()(std::string_view key, Got (TextBox::*)() const, void (TextBox::*set)(Set),
                    const Value& fallback) const {
        (box.*set)(readStored(bag, key, fallback));
    }
};

struct StoredWriter {
    const TextBox& box;
    PropertyBag& bag;

    template <class Got, class Set, class Value>
    void operator()(std::string_view key, Got (TextBox::*get)() const, void (TextBox::*)(Set),
                    const Value& fallback) const {
        bag.write(key, storedValue((box.*get)()), storedValue(fallback));
    }
};

}  // namespace

XPTextBox::XPTextBox(std::string_view name, int twipsPerPixel)
    : Control(name), twipsPerPixel_(twipsPerPixel) {
    MyTxt.Change = [this] {
        if (Change) Change();
    };
    MyTxt.Click = [this] {
        if (Click) Click();
    };
    MyTxt.DblClick = [this] {
        if (DblClick) DblClick();
    };
    MyTxt.KeyPress = [this](std::int16_t& keyAscii) {
        if (KeyPress) KeyPress(keyAscii);
    };
    MyTxt.MouseMove = [this](std::int16_t button, std::int16_t shift, float x, float y) {
        if (MouseMove) MouseMove(button, shift, x, y);
    };
}

void XPTextBox::InitProperties() {
    dataFields_.clear();
    MyTxt.Text(Name());
    velvox::Font font = MyTxt.font();
    font.name = "Verdana";
    MyTxt.font(font);
    // Setting a different height calls resized() itself.
    if (Height() == newInstanceHeight)
        resized();
    else
        Height(newInstanceHeight);
}

void XPTextBox::ReadProperties(const PropertyBag& bag, const velvox::Font& ambient) {
    // An alignment that the inner box would reject becomes left, so that the other properties are
    // still read.
    const std::int32_t alignment = bag.readNumber("Alignment", 0);
    const bool isKnown = alignment >= 0 && alignment <= 2;
    MyTxt.Alignment(isKnown ? static_cast<std::int16_t>(alignment) : std::int16_t{0});
    eachInnerProperty(ambient, StoredReader{MyTxt, bag});
    dataFields_ = bag.readText("DataFields", "");
}

void XPTextBox::WriteProperties(PropertyBag& bag, const velvox::Font& ambient) const {
    bag.write("Alignment", std::int32_t{Alignment()}, 0);
    eachInnerProperty(ambient, StoredWriter{MyTxt, bag});
    bag.write("DataFields", dataFields_, std::string());
}

void XPTextBox::RePos() {
    const int inset = insetPixels * twipsPerPixel_;
    Pic.Move({0, 0, Width(), Height()});
    // In a control that is too small, the inner box has no width or height.
    MyTxt.Move({inset, inset, std::max(0, Pic.Width() - 2 * inset),
                std::max(0, Pic.Height() - 2 * inset)});
}

// The four margins are rounded to pixels, not the edges: a window can be a pixel smaller than its
// size in twips suggests, and the margins must keep their width.
Rect XPTextBox::textBounds(int width, int height, int dpi) const {
    const Bounds text = MyTxt.bounds();
    return {toPixels(text.left, dpi), toPixels(text.top, dpi),
            width - toPixels(Pic.Width() - text.left - text.width, dpi),
            height - toPixels(Pic.Height() - text.top - text.height, dpi)};
}

void XPTextBox::PaintFrame(OleColour margin, Look look) {
    const int w = Pic.Width();
    const int h = Pic.Height();
    const int pixel = twipsPerPixel_;
    Pic.BackColor(margin);
    frame_ = {{{0, 0, w, 0, frameColour},
               {0, 0, 0, h, frameColour},
               {w - pixel, 0, w - pixel, h, frameColour},
               {0, h - pixel, w, h - pixel, frameColour}}};
    switch (look) {
        case Look::Normal:
            MyTxt.BackColor(normalBack);
            MyTxt.Enabled(true);
            MyTxt.Locked(false);
            break;
        case Look::Disabled:
            MyTxt.Enabled(false);
            MyTxt.BackColor(disabledBack);
            MyTxt.ForeColor(disabledText);
            break;
        case Look::ReadOnly:
            MyTxt.Enabled(true);
            MyTxt.Locked(true);
            break;
    }
    changed(ControlChange::Appearance);
}

// Every resize, also the one after loading, applies the normal look: the box becomes white, enabled
// and unlocked whatever was stored. This behaviour is intended.
void XPTextBox::resized() {
    RePos();
    PaintFrame(marginColour, Look::Normal);
}

void XPTextBox::Alignment(std::int16_t alignment) {
    MyTxt.Alignment(alignment > 2 ? std::int16_t{0} : alignment);
    notify("Alignment");
}

void XPTextBox::Locked(bool locked) {
    MyTxt.Locked(locked);
    Pic.Enabled(!locked);
    notify("Locked");
}

void XPTextBox::DataFields(std::string_view name) {
    dataFields_ = name;
    MyTxt.DataField(name);
    notify("DataFields");
}

void XPTextBox::Focus() {
    MyTxt.SelStart(0);
    MyTxt.SelLength(static_cast<std::int32_t>(MyTxt.Text().size()));
    MyTxt.SetFocus();
}

double XPTextBox::GetValue() const {
    std::string_view text = MyTxt.Text();
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    // from_chars also accepts words such as "inf", so the first character must be a digit or a
    // point.
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    if (text.size() <= first || std::string_view("0123456789.").find(text[first]) == text.npos)
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars reports overflow and underflow alike. strtod returns infinity for an overflow
        // only.
        value = std::strtod(std::string(text.data(), result.ptr).c_str(), nullptr);
        if (std::isinf(value)) throw RuntimeFailure(Fault::Overflow, "The number does not fit");
    }
    return value;
}

void XPTextBox::notify(std::string_view property) {
    if (PropertyChanged) PropertyChanged(property);
}

}  // namespace velvox
