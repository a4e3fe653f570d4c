// The stored form of a push button. Keys, their odd letter case, their order and the differing
// defaults of reading and writing are those of forms already stored.
#include "controls/button/is_button.h"

namespace velvox {
namespace {

// Keeps the bits: a system colour has the top one set.
std::int32_t stored(OleColour colour) {
    return static_cast<std::int32_t>(colour);
}

// Stored forms count on these two, although the system's own tips have them the other way round.
constexpr int toolTipBackDefault = InfoTextColour;
constexpr int toolTipForeDefault = InfoBackColour;

}  // namespace

void isButton::ReadProperties(const PropertyBag& bag, const ButtonAmbient& ambient) {
    const auto readColour = [&](std::string_view key, int systemIndex) {
        return static_cast<OleColour>(bag.readNumber(key, rgbOf(systemIndex)));
    };
    icon_ = bag.readPicture("Icon", nullptr);
    style_ = bag.readNumber("Style", 3);
    caption_ = bag.readText("Caption", "isButton");
    iconSize_ = bag.readNumber("IconSize", 16);
    captionAlign_ = bag.readNumber("CaptionAlign", 0);
    iconAlign_ = bag.readNumber("IconAlign", 1);
    nonThemeStyle_ = bag.readNumber("iNonThemeStyle", 5);
    enabled_ = bag.readBool("Enabled", true);
    showFocus_ = bag.readBool("ShowFocus", false);
    useCustomColors_ = bag.readBool("USeCustomColors", false);
    backColor_ = readColour("BackColor", ButtonFaceColour);
    highlightColor_ = readColour("HighlightColor", HighlightColour);
    fontColor_ = readColour("FontColor", ButtonTextColour);
    fontHighlightColor_ = readColour("FontHighlightColor", ButtonTextColour);
    toolTip_ = bag.readText("ToolTipText", ambient.toolTipText);
    toolTipTitle_ = bag.readText("Tooltiptitle", "");
    toolTipIcon_ = bag.readNumber("ToolTipIcon", 0);
    toolTipType_ = bag.readNumber("ToolTipType", 1);
    toolTipBackColor_ = readColour("ttBackColor", toolTipBackDefault);
    toolTipForeColor_ = readColour("ttForeColor", toolTipForeDefault);
    toolTipBackColorSet_ = toolTipForeColorSet_ = true;
    font_ = bag.readFont("Font", ambient.font);
    buttonType_ = bag.readNumber("ButtonType", 0);
    value_ = bag.readBool("Value", false);

    userMode_ = ambient.userMode;
    // Notify only when all is read: the window of a form about to be shown may already follow.
    changed(Aspect::Setting);
    changed(Aspect::Text);
    changed(Aspect::Enabled);
}

void isButton::WriteProperties(PropertyBag& bag) const {
    bag.write("Icon", icon_);
    bag.write("Style", style_, 3);
    bag.write("Caption", caption_, std::string());
    bag.write("IconSize", iconSize_, 16);
    bag.write("CaptionAlign", captionAlign_, 0);
    bag.write("IconAlign", iconAlign_, 0);
    bag.write("iNonThemeStyle", nonThemeStyle_, 5);
    bag.write("Enabled", enabled_, true);
    bag.write("ShowFocus", showFocus_, false);
    bag.write("USeCustomColors", useCustomColors_, false);
    bag.write("BackColor", stored(backColor_), rgbOf(ButtonFaceColour));
    bag.write("HighlightColor", stored(highlightColor_), rgbOf(HighlightColour));
    bag.write("FontColor", stored(fontColor_), rgbOf(ButtonTextColour));
    bag.write("FontHighlightColor", stored(fontHighlightColor_), rgbOf(ButtonTextColour));
    bag.write("ToolTipText", toolTip_);
    bag.write("Tooltiptitle", toolTipTitle_);
    bag.write("ToolTipIcon", toolTipIcon_);
    bag.write("ToolTipType", toolTipType_);
    // Unset colours, written as 0, would come back as black on black.
    if (toolTipBackColorSet_)
        bag.write("ttBackColor", stored(toolTipBackColor_), rgbOf(toolTipBackDefault));
    if (toolTipForeColorSet_)
        bag.write("ttForeColor", stored(toolTipForeColor_), rgbOf(toolTipForeDefault));
    bag.write("Font", font_);
    bag.write("ButtonType", buttonType_, 0);
    bag.write("Value", value_, false);
}

}  // namespace velvox
