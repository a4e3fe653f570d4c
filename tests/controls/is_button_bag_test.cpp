#include <gtest/gtest.h>

#include "controls/is_button.h"
#include "tests/controls/is_button_fakes.h"

namespace velvox {
namespace {

const NumberedColours colours;

struct Pixels : Picture {
    bool hasImage() const override { return true; }
};

PropertyBag written(const isButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    return bag;
}

std::string keysOf(const PropertyBag& bag) {
    std::string keys;
    for (const auto& entry : bag.entries()) (keys += entry.key) += ' ';
    return keys;
}

TEST(IsButtonBagTest, AnEmptyBagGivesTheReadDefaults) {
    isButton button("b", colours);
    ButtonAmbient ambient;
    ambient.font.name = "Ambient";
    ambient.toolTipText = "of the container";
    button.ReadProperties({}, ambient);
    EXPECT_EQ(button.Caption(), "isButton");
    const int numbers[] = {button.Style(),       button.IconSize(),      button.CaptionAlign(),
                           button.IconAlign(),   button.NonThemeStyle(), button.ToolTipIcon(),
                           button.ToolTipType(), button.ButtonType()};
    EXPECT_EQ(testing::PrintToString(numbers), "{ 3, 16, 0, 1, 5, 0, 1, 0 }");
    EXPECT_TRUE(button.Enabled());
    EXPECT_FALSE(button.ShowFocus() || button.UseCustomColors() || button.Value());
    const std::pair<OleColour, int> taken[] = {
        {button.BackColor(), 15},        {button.HighlightColor(), 13},
        {button.FontColor(), 18},        {button.FontHighlightColor(), 18},
        {button.ToolTipBackColor(), 23}, {button.ToolTipForeColor(), 24}};
    for (const auto& [colour, index] : taken)
        EXPECT_EQ(static_cast<int>(colour), NumberedColours::of(index)) << index;
    EXPECT_EQ(button.ToolTip(), "of the container");
    EXPECT_EQ(button.Font().name, "Ambient");

    button.Caption("");
    button.IconAlign(0);
    EXPECT_EQ(keysOf(written(button)),
              "Icon ToolTipText Tooltiptitle ToolTipIcon ToolTipType Font ");
}

// A fresh button leaves its icon alignment 0 out, and comes back with 1.
TEST(IsButtonBagTest, ReadAndWriteDefaultsOfTheIconAlignmentDiffer) {
    const isButton fresh("b", colours);
    EXPECT_EQ(fresh.Style(), 0);
    EXPECT_EQ(fresh.IconAlign(), 0);
    isButton again("c", colours);
    again.ReadProperties(written(fresh));
    EXPECT_EQ(again.IconAlign(), 1);
    EXPECT_EQ(again.Caption(), "b");
    // Colours of the tip that were never set stay the system's, and do not come back as black.
    EXPECT_FALSE(again.toolTipRecord().backColour || again.toolTipRecord().foreColour);
}

TEST(IsButtonBagTest, EveryKeyMakesTheWholeWayInOrder) {
    isButton button("b", colours);
    Font font;
    font.points = 12;
    button.Icon(std::make_shared<Pixels>()), button.Style(9), button.Caption("isButton");
    button.IconSize(32), button.CaptionAlign(4), button.IconAlign(2), button.NonThemeStyle(0);
    button.Enabled(false), button.ShowFocus(true), button.UseCustomColors(true);
    button.BackColor(0x8000000F), button.HighlightColor(0xE0E0E0), button.FontColor(0x008000);
    button.FontHighlightColor(7), button.ToolTip("tip"), button.ToolTipTitle("title");
    button.ToolTipIcon(2), button.ToolTipType(0), button.ToolTipBackColor(8);
    button.ToolTipForeColor(9), button.Font(font), button.ButtonType(1), button.Value(true);
    const PropertyBag bag = written(button);
    EXPECT_EQ(keysOf(bag),
              "Icon Style Caption IconSize CaptionAlign IconAlign iNonThemeStyle Enabled "
              "ShowFocus USeCustomColors BackColor HighlightColor FontColor FontHighlightColor "
              "ToolTipText Tooltiptitle ToolTipIcon ToolTipType ttBackColor ttForeColor Font "
              "ButtonType Value ");
    isButton copy("c", colours);
    copy.ReadProperties(bag);
    EXPECT_EQ(written(copy), bag);
    EXPECT_EQ(copy.BackColor(), 0x8000000FU);
    EXPECT_THROW(copy.ReadProperties({{"style", std::string("five")}}), std::runtime_error);
}

}  // namespace
}  // namespace velvox
