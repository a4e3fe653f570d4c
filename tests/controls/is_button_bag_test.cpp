#include <gtest/gtest.h>

#include "controls/is_button.h"
#include "tests/controls/is_button_fakes.h"

namespace velvox {
namespace {

const NumberedColours colours;

struct Pixels : Picture {
    bool hasImage() const override { return true; }
};

std::int32_t colourOf(int index) {
    return NumberedColours::of(index);
}

TEST(IsButtonBagTest, AFreshButtonHasItsOwnValues) {
    const isButton button("UniXPButton1", colours);
    EXPECT_EQ(button.Caption(), "UniXPButton1");
    EXPECT_EQ(button.Style(), 0);
    EXPECT_EQ(button.IconSize(), 16);
    EXPECT_EQ(button.IconAlign(), 0);
    EXPECT_TRUE(button.Enabled());
    EXPECT_FALSE(button.ShowFocus());
    EXPECT_FALSE(button.UseCustomColors());
    EXPECT_EQ(static_cast<int>(button.BackColor()), colourOf(15));
    EXPECT_EQ(static_cast<int>(button.HighlightColor()), colourOf(13));
    EXPECT_EQ(static_cast<int>(button.FontColor()), colourOf(18));
    EXPECT_EQ(static_cast<int>(button.FontHighlightColor()), colourOf(18));
    EXPECT_FALSE(button.toolTipRecord().backColour);
    EXPECT_FALSE(button.toolTipRecord().foreColour);
}

TEST(IsButtonBagTest, AnEmptyBagGivesTheReadDefaults) {
    isButton button("b", colours);
    ButtonAmbient ambient;
    ambient.font.name = "Ambient";
    ambient.toolTipText = "of the container";
    button.ReadProperties({}, ambient);
    EXPECT_EQ(button.Icon(), nullptr);
    EXPECT_EQ(button.Style(), 3);
    EXPECT_EQ(button.Caption(), "isButton");
    EXPECT_EQ(button.IconSize(), 16);
    EXPECT_EQ(button.CaptionAlign(), 0);
    EXPECT_EQ(button.IconAlign(), 1);
    EXPECT_EQ(button.NonThemeStyle(), 5);
    EXPECT_TRUE(button.Enabled());
    EXPECT_FALSE(button.ShowFocus());
    EXPECT_FALSE(button.UseCustomColors());
    EXPECT_EQ(static_cast<int>(button.BackColor()), colourOf(15));
    EXPECT_EQ(static_cast<int>(button.HighlightColor()), colourOf(13));
    EXPECT_EQ(static_cast<int>(button.FontColor()), colourOf(18));
    EXPECT_EQ(static_cast<int>(button.FontHighlightColor()), colourOf(18));
    EXPECT_EQ(button.ToolTip(), "of the container");
    EXPECT_EQ(button.ToolTipTitle(), "");
    EXPECT_EQ(button.ToolTipIcon(), 0);
    EXPECT_EQ(button.ToolTipType(), 1);
    EXPECT_EQ(static_cast<int>(button.ToolTipBackColor()), colourOf(23));
    EXPECT_EQ(static_cast<int>(button.ToolTipForeColor()), colourOf(24));
    EXPECT_EQ(button.Font().name, "Ambient");
    EXPECT_EQ(button.ButtonType(), 0);
    EXPECT_FALSE(button.Value());
}

TEST(IsButtonBagTest, ValuesThatAreTheWriteDefaultsAreLeftOut) {
    isButton button("b", colours);
    button.ReadProperties({});
    button.Caption("");
    button.IconAlign(0);
    PropertyBag bag;
    button.WriteProperties(bag);
    std::string keys;
    for (const auto& entry : bag.entries()) (keys += entry.key) += ' ';
    EXPECT_EQ(keys, "Icon ToolTipText Tooltiptitle ToolTipIcon ToolTipType Font ");
}

// A fresh button leaves its icon alignment 0 out, and comes back with 1.
TEST(IsButtonBagTest, ReadAndWriteDefaultsOfTheIconAlignmentDiffer) {
    const isButton fresh("b", colours);
    PropertyBag bag;
    fresh.WriteProperties(bag);
    for (const auto& entry : bag.entries()) EXPECT_NE(entry.key, "IconAlign");
    isButton again("b", colours);
    again.ReadProperties(bag);
    EXPECT_EQ(again.IconAlign(), 1);
    // The caption is written although it equals the read default's kind of value.
    EXPECT_EQ(again.Caption(), "b");
    // Colours of the tip that were never set stay the system's, and do not come back as black.
    EXPECT_FALSE(again.toolTipRecord().backColour);
    EXPECT_FALSE(again.toolTipRecord().foreColour);
}

TEST(IsButtonBagTest, EveryKeyMakesTheWholeWayInOrder) {
    isButton button("b", colours);
    Font font;
    font.points = 12;
    const auto icon = std::make_shared<Pixels>();
    button.Icon(icon), button.Style(9), button.Caption("isButton"), button.IconSize(32);
    button.CaptionAlign(4), button.IconAlign(2), button.NonThemeStyle(0), button.Enabled(false);
    button.ShowFocus(true), button.UseCustomColors(true), button.BackColor(0x8000000F);
    button.HighlightColor(0xE0E0E0), button.FontColor(0x008000), button.FontHighlightColor(7);
    button.ToolTip("tip"), button.ToolTipTitle("title"), button.ToolTipIcon(2);
    button.ToolTipType(0), button.ToolTipBackColor(8), button.ToolTipForeColor(9);
    button.Font(font), button.ButtonType(1), button.Value(true);
    PropertyBag bag;
    button.WriteProperties(bag);
    std::string keys;
    for (const auto& entry : bag.entries()) (keys += entry.key) += ' ';
    EXPECT_EQ(keys,
              "Icon Style Caption IconSize CaptionAlign IconAlign iNonThemeStyle Enabled "
              "ShowFocus USeCustomColors BackColor HighlightColor FontColor FontHighlightColor "
              "ToolTipText Tooltiptitle ToolTipIcon ToolTipType ttBackColor ttForeColor Font "
              "ButtonType Value ");

    isButton copy("c", colours);
    copy.ReadProperties(bag);
    PropertyBag second;
    copy.WriteProperties(second);
    EXPECT_EQ(second, bag);
    EXPECT_EQ(copy.BackColor(), 0x8000000FU);
    EXPECT_EQ(copy.Icon(), icon);
}

// Hosts store the keys in lower case.
TEST(IsButtonBagTest, LowerCaseKeysAreFound) {
    const PropertyBag bag{{"style", 5},
                          {"caption", std::string("Close")},
                          {"iconalign", 1},
                          {"inonthemestyle", 0},
                          {"enabled", false},
                          {"usecustomcolors", true},
                          {"backcolor", 0xE0E0E0},
                          {"highlightcolor", 0xE0E0E0},
                          {"fontcolor", 0x008000},
                          {"tooltiptitle", std::string()},
                          {"tooltipicon", 0},
                          {"tooltiptype", 0}};
    isButton button("isButton1", colours);
    button.ReadProperties(bag);
    EXPECT_EQ(button.Style(), 5);
    EXPECT_EQ(button.NonThemeStyle(), 0);
    EXPECT_FALSE(button.Enabled());
    EXPECT_TRUE(button.UseCustomColors());
    EXPECT_EQ(button.FontColor(), 0x008000U);
    EXPECT_EQ(button.ToolTipType(), 0);
    EXPECT_THROW(button.ReadProperties({{"style", std::string("five")}}), std::runtime_error);
}

}  // namespace
}  // namespace velvox
