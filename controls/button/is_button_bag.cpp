// Reads and writes a push button's properties. Forms that are already stored depend on the keys
// with their odd letter case, on their order, and on the different defaults for reading and
// writing.
#include "base/stored_value.h"
#include "controls/button/is_button.h"

namespace velvox {
namespace {

// Kinds of default other than a plain value: a system colour (SystemDefault), an ambient property
// (AmbientDefault), and `always` for a property that is written even if it has its default value.
struct SystemDefault {
    int index;
};
template <class Value>
using AmbientDefault = Value ButtonAmbient::*;
constexpr std::monostate always;

template <class Value, class ReadDefault, class WriteDefault>
struct Row {
    std::string_view key;
    Value ButtonSettings::*member;
    ReadDefault readDefault;
    WriteDefault writeDefault;
    std::string_view property;  ///< the name passed to PropertyChanged
    ControlChange change = ControlChange::Appearance;
};
// clang 14 deduces no arguments of an aggregate by itself.
template <class Value, class ReadDefault, class WriteDefault, class... Change>
Row(std::string_view, Value ButtonSettings::*, ReadDefault, WriteDefault, std::string_view,
    Change...) -> Row<Value, ReadDefault, WriteDefault>;

// The rows are in stored order. By default, the tool tip's background has the system's tip text
// colour and its text the system's tip background colour, because stored forms rely on this swap.
template <class Visit>
void eachProperty(Visit visit) {
    using S = ButtonSettings;
    constexpr SystemDefault face{ButtonFaceColour}, highlight{HighlightColour};
    constexpr SystemDefault text{ButtonTextColour}, tipBack{InfoTextColour},
        tipFore{InfoBackColour};
    visit(Row{"Icon", &S::icon, nullptr, always, "Icon"});
    visit(Row{"Style", &S::style, 3, 3, "Style"});
    visit(Row{"Caption", &S::caption, "isButton", "", "Caption", ControlChange::Text});
    visit(Row{"IconSize", &S::iconSize, 16, 16, "IconSize"});
    visit(Row{"CaptionAlign", &S::captionAlign, 0, 0, "CaptionAlign"});
    visit(Row{"IconAlign", &S::iconAlign, 1, 0, "IconAlign"});
    visit(Row{"iNonThemeStyle", &S::nonThemeStyle, 5, 5, "NonThemeStyle"});
    visit(Row{"Enabled", &S::enabled, true, true, "Enabled", ControlChange::Enabled});
    visit(Row{"ShowFocus", &S::showFocus, false, false, "ShowFocus"});
    visit(Row{"USeCustomColors", &S::useCustomColors, false, false, "UseCustomColors"});
    visit(Row{"BackColor", &S::backColor, face, face, "BackColor"});
    visit(Row{"HighlightColor", &S::highlightColor, highlight, highlight, "HighlightColor"});
    visit(Row{"FontColor", &S::fontColor, text, text, "FontColor"});
    visit(Row{"FontHighlightColor", &S::fontHighlightColor, text, text, "FontHighlightColor"});
    visit(Row{"ToolTipText", &S::toolTip, &ButtonAmbient::toolTipText, always, "ToolTipText"});
    visit(Row{"Tooltiptitle", &S::toolTipTitle, "", always, "TooltipTitle"});
    visit(Row{"ToolTipIcon", &S::toolTipIcon, 0, always, "TooltipIcon"});
    visit(Row{"ToolTipType", &S::toolTipType, 1, always, "ToolTipType"});
    visit(Row{"ttBackColor", &S::toolTipBackColor, tipBack, tipBack, "ToolTipBackColor"});
    visit(Row{"ttForeColor", &S::toolTipForeColor, tipFore, tipFore, "ToolTipForeColor"});
    visit(Row{"Font", &S::font, &ButtonAmbient::font, always, "Font"});
    visit(Row{"ButtonType", &S::buttonType, 0, 0, "ButtonType"});
    visit(Row{"Value", &S::value, false, false, "Value"});
}

// Computes the default value of a property from its Row.
struct Defaults {
    const SystemColours& colours;
    const ButtonAmbient& ambient;

    template <class Value>
    Value of(SystemDefault system) const {
        return static_cast<OleColour>(colours.colour(system.index));
    }
    template <class Value>
    Value of(AmbientDefault<Value> member) const {
        return ambient.*member;
    }
    template <class Value, class Plain>
    Value of(const Plain& plain) const {
        return plain;
    }
};

OleColour readStored(const PropertyBag& bag, std::string_view key,
                     const std::optional<OleColour>& fallback) {
    return velvox::readStored(bag, key, *fallback);
}

}  // namespace

template <class T>
void isButton::set(T ButtonSettings::*member, const std::type_identity_t<T>& value) {
    stored_.*member = value;
    std::string_view property;
    ControlChange change{};
    eachProperty([&](const auto& row) {
        if constexpr (std::is_same_v<decltype(row.member), T ButtonSettings::*>)
            if (row.member == member) property = row.property, change = row.change;
    });
    notify(property, change);
}

template void isButton::set(bool ButtonSettings::*, const bool&);
template void isButton::set(int ButtonSettings::*, const int&);
template void isButton::set(OleColour ButtonSettings::*, const OleColour&);
template void isButton::set(std::optional<OleColour> ButtonSettings::*,
                            const std::optional<OleColour>&);
template void isButton::set(std::string ButtonSettings::*, const std::string&);
template void isButton::set(velvox::Font ButtonSettings::*, const velvox::Font&);
template void isButton::set(PicturePtr ButtonSettings::*, const PicturePtr&);

void isButton::ReadProperties(const PropertyBag& bag, const ButtonAmbient& ambient) {
    const Defaults defaults{*colours_, ambient};
    eachProperty([&](const auto& row) {
        auto& held = stored_.*row.member;
        using Value = std::remove_reference_t<decltype(held)>;
        held = readStored(bag, row.key, defaults.of<Value>(row.readDefault));
    });
    userMode_ = ambient.userMode;
    // Observers are notified only after all properties are read, because the button's window may
    // already exist.
    changed(ControlChange::Other);
    changed(ControlChange::Text);
    changed(ControlChange::Enabled);
}

void isButton::WriteProperties(PropertyBag& bag) const {
    const ButtonAmbient ambient;
    const Defaults defaults{*colours_, ambient};
    eachProperty([&](const auto& row) {
        const auto& held = stored_.*row.member;
        using Value = std::remove_cvref_t<decltype(held)>;
        using Default = std::remove_cvref_t<decltype(row.writeDefault)>;
        if constexpr (std::is_same_v<Default, std::monostate>) {
            bag.write(row.key, storedValue(held));
        } else if constexpr (std::is_same_v<Value, std::optional<OleColour>>) {
            // An unset colour, written as 0, would be read back as black.
            if (held)
                bag.write(row.key, storedValue(*held),
                          storedValue(*defaults.of<Value>(row.writeDefault)));
        } else {
            bag.write(row.key, storedValue(held),
                      storedValue(defaults.of<Value>(row.writeDefault)));
        }
    });
}

}  // namespace velvox
