#include "controls/button/is_button.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <sstream>

#include "controls/button/is_button_layout.h"
#include "tests/controls/button/is_button_fakes.h"

namespace velvox {
namespace {

const NumberedColours colours;

void run(isButton& button, const char* steps) {
    static const std::map<std::string, std::function<void(isButton&)>> meanings = {
        {"enter", &isButton::pointerMoved},
        {"leave", &isButton::pointerLeft},
        {"click", &isButton::click},
        {"double", &isButton::doubleClick},
        {"activate", &isButton::activate},
        {"focus", &isButton::gotFocus},
        {"blur", &isButton::lostFocus},
        {"cancel", &isButton::pressCancelled},
        {"down", [](isButton& b) { b.mouseDown(MouseButton::Left); }},
        {"up", [](isButton& b) { b.mouseUp(MouseButton::Left); }},
        {"right",
         [](isButton& b) { b.mouseDown(MouseButton::Right), b.mouseUp(MouseButton::Right); }},
        {"off-edge", [](isButton& b) { b.pointerDragged(false); }},
        {"on-edge", [](isButton& b) { b.pointerDragged(true); }},
        {"press", [](isButton& b) { b.keyDown(' '), b.keyPress(' '); }},
        {"release", [](isButton& b) { b.keyUp(' '); }},
        {"other", [](isButton& b) { b.keyDown('A'), b.keyPress('a'), b.keyUp('A'); }},
        {"disable", [](isButton& b) { b.Enabled(false); }},
        {"enable", [](isButton& b) { b.Enabled(true); }},
        {"toggle", [](isButton& b) { b.ButtonType(1); }},
        {"on", [](isButton& b) { b.Value(true); }},
        {"untracked", [](isButton& b) { b.tracking(Tracking::None); }}};
    std::istringstream words(steps);
    for (std::string word; words >> word;) meanings.at(word)(button);
}

TEST(IsButtonTest, SequencesRaiseTheirEventsAndEndInTheirState) {
    using enum ButtonState;
    const struct {
        const char* steps;
        const char* log;  // C, E, L events; t leave notice, T tool tip, "." repaint
        ButtonState state;
        bool value = false;
    } table[] = {
        {"enter enter leave enter", "t.ET.Lt.ET", Hot},
        // One press and release: the state changes three times, and so often it is painted.
        {"enter down up click leave", "t.ET..C.L", Normal},
        // The right button presses nothing and makes the click void.
        {"down up click right click", "..C", Hot},
        // Without a mouse-up of the left button there is no click, and no double click.
        {"click double", "", Normal},
        {"down up click double up click", "..C..C", Hot},
        // Leaving while pressed, and pressed again on the way back.
        {"enter down leave", "t.ET..L", Normal},
        {"enter down off-edge", "t.ET..", Hot},
        {"down off-edge off-edge on-edge", "...", Pressed},
        {"down off-edge up leave", "....L", Normal},
        {"off-edge down", ".", Pressed},
        {"enter down cancel", "t.ET..", Hot},
        {"down up cancel cancel", "...", Normal},
        // Space clicks by its character; again, since its release counts as the left button.
        {"press release press release", ".C..CC.", Hot},
        {"other", "", Normal},
        // The focus says nothing about a press; the window ends one that has lost its release.
        {"down blur", "..", Pressed},
        {"focus press release blur", "..C..", Hot},
        {"focus press release blur cancel", "..C...", Normal},
        // A toggle button stays pressed between the clicks and takes two to come back.
        {"toggle enter down up click leave", ".t.ET...C.L", Pressed, true},
        {"toggle down up click down up click", "....C...C", Hot},
        {"toggle press release press release", "..C..C.C.", Pressed, true},
        {"on", ".", Normal, true},
        // Disabled: nothing but the hover's events and the last button.
        {"disable down up click double press release activate", ".", Disabled},
        {"down up disable right enable click", "....", Hot},
        {"toggle on disable", "...", Disabled, true},
        {"enter down disable up click enable", "t.ET...", Pressed},
        {"disable enter leave", ".t.ET.L", Disabled},
        // Enter, mnemonics and tools click once, whatever came before.
        {"activate", "C", Normal},
        {"toggle activate", "..C", Pressed, true},
        {"toggle activate activate", "..C.C", Normal},
        // Where nothing reports the leaving there is no hot look to get stuck in.
        {"untracked down up click", "..C", Normal},
    };
    for (const auto& row : table) {
        isButton button("b", colours);
        ButtonLog log(button);
        run(button, row.steps);
        EXPECT_EQ(log.text, row.log) << row.steps;
        EXPECT_EQ(button.visualState(), row.state) << row.steps;
        EXPECT_EQ(button.Value(), row.value) << row.steps;
    }
}

// A designed button is hot in every style but 5, and the themes' fallback is of run time alone.
TEST(IsButtonTest, DesignTimeAndRefusedThemes) {
    isButton button("b", colours);
    button.NonThemeStyle(2);
    button.PropertyChanged = [](std::string_view name) { FAIL() << name << ": not silent"; };
    button.themeRefused();
    EXPECT_EQ(button.Style(), 2);
    ButtonAmbient design;
    design.userMode = false;
    for (const int style : {5, 6}) {
        button.ReadProperties({{"Style", style}}, design);
        EXPECT_EQ(button.visualState(), style == 5 ? ButtonState::Normal : ButtonState::Hot);
    }
    button.themeRefused();
    EXPECT_EQ(button.Style(), 6);
}

TEST(IsButtonTest, HandlersMayDestroyTheButton) {
    for (const char* const sequence : {"up click", "press", "toggle up click", "enter"}) {
        auto button = std::make_unique<isButton>("b", colours);
        ButtonLog log(*button);
        std::string after;
        button->Click = button->MouseEnter = [&, captured = std::string(64, 'x')] {
            button.reset();
            after = captured;
        };
        run(*button, sequence);
        EXPECT_EQ(after, std::string(64, 'x')) << sequence;
    }
    auto button = std::make_unique<isButton>("b", colours);
    button->PropertyChanged = [&](std::string_view) { button.reset(); };
    button->Caption("gone");
    EXPECT_EQ(button, nullptr);
}

TEST(IsButtonTest, CaptionFlagsBreakLinesUntilTheFirstResize) {
    isButton button("b", colours);
    button.CaptionAlign(2);
    EXPECT_EQ(button.captionFlags(), 17U);
    button.Move({10, 20, 100, 4000});
    EXPECT_EQ(button.place(), (Place{10, 20, 300, 4000})) << "no side is shorter than 300 twips";
    button.Height(0);
    EXPECT_EQ(button.Height(), 300);
    const unsigned flags[] = {37, 36, 38, 33, 41, 41};
    for (int align = 0; align < 6; ++align) {
        const unsigned before = button.captionFlags();
        align % 2 ? button.CaptionAlign(align) : button.ReadProperties({{"CaptionAlign", align}});
        EXPECT_EQ(button.captionFlags(), before) << "a resize applies it";
        button.Height(400 + align);
        EXPECT_EQ(button.captionFlags(), flags[align]) << align;
    }
}

PropertyBag written(const isButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    return bag;
}

// The keys in their order, with those values that are numbers.
std::string textOf(const PropertyBag& bag) {
    std::ostringstream text;
    for (const auto& [key, value] : bag.entries()) {
        text << key << ' ';
        if (const auto* number = std::get_if<std::int32_t>(&value)) text << *number << ' ';
    }
    return text.str();
}

TEST(IsButtonTest, AnEmptyBagGivesTheReadDefaults) {
    // A fresh button leaves its icon alignment 0 out, and comes back with 1.
    isButton button("fresh", colours);
    EXPECT_EQ(button.IconAlign(), 0);
    EXPECT_FALSE(button.toolTipRecord().backColour || button.toolTipRecord().foreColour);
    button.ReadProperties(written(button));
    EXPECT_EQ(button.IconAlign(), 1);
    EXPECT_EQ(button.Style(), 0);

    ButtonAmbient ambient;
    ambient.font.name = "Ambient";
    ambient.toolTipText = "of the container";
    button.ReadProperties({}, ambient);
    EXPECT_EQ(button.Caption(), "isButton");
    EXPECT_EQ(button.toolTipRecord().backColour, 0) << "a black that is read counts";
    EXPECT_EQ(button.toolTipRecord().foreColour, colours.colour(InfoBackColour));
    EXPECT_EQ(button.ToolTip(), "of the container");
    EXPECT_EQ(button.Font().name, "Ambient");
    // All others are those that are left out again.
    EXPECT_EQ(
        textOf(written(button)),
        "Icon Caption IconAlign 1 ToolTipText Tooltiptitle ToolTipIcon 0 ToolTipType 1 Font ");
}

struct Pixels : Picture {
    bool hasImage() const override { return true; }
};

TEST(IsButtonTest, EverySetterNotifiesRepaintsOnceAndIsStoredInOrder) {
    isButton button("b", colours);
    ButtonLog log(button);
    std::string told;
    button.PropertyChanged = [&](std::string_view name) { (told += name) += ' '; };
    button.Icon(std::make_shared<Pixels>()), button.Style(9), button.Caption("isButton");
    button.IconSize(32), button.CaptionAlign(4), button.IconAlign(2), button.NonThemeStyle(0);
    button.Enabled(false), button.ShowFocus(true), button.UseCustomColors(true);
    button.BackColor(0x8000000F), button.HighlightColor(0xE0E0E0), button.FontColor(0x008000);
    button.FontHighlightColor(7), button.ToolTip("tip"), button.ToolTipTitle("title");
    button.ToolTipIcon(2), button.ToolTipType(0), button.ToolTipBackColor(8);
    button.ToolTipForeColor(9), button.Font({.points = 12}), button.ButtonType(1);
    button.Value(true);
    EXPECT_EQ(told,
              "Icon Style Caption IconSize CaptionAlign IconAlign NonThemeStyle Enabled ShowFocus "
              "UseCustomColors BackColor HighlightColor FontColor FontHighlightColor ToolTipText "
              "TooltipTitle TooltipIcon ToolTipType ToolTipBackColor ToolTipForeColor Font "
              "ButtonType Value ");
    EXPECT_EQ(log.repaints, 23);
    const PropertyBag bag = written(button);
    EXPECT_EQ(textOf(bag),
              "Icon Style 9 Caption IconSize 32 CaptionAlign 4 IconAlign 2 iNonThemeStyle 0 "
              "Enabled ShowFocus USeCustomColors BackColor -2147483633 HighlightColor 14737632 "
              "FontColor 32768 FontHighlightColor 7 ToolTipText Tooltiptitle ToolTipIcon 2 "
              "ToolTipType 0 ttBackColor 8 ttForeColor 9 Font ButtonType 1 Value ");
    isButton copy("c", colours);
    copy.ReadProperties(bag);
    EXPECT_EQ(written(copy), bag);
    EXPECT_THROW(copy.ReadProperties({{"style", std::string("five")}}), std::runtime_error);

    EXPECT_FALSE(copy.look().focusShown);
    copy.gotFocus();
    EXPECT_TRUE(copy.look().focusShown);
    EXPECT_EQ(copy.look().colours.font, 0x008000);
    copy.ShowFocus(false);
    EXPECT_FALSE(copy.look().focusShown);
}

TEST(ButtonLayoutTest, IconsArePlacedWithHalvesCutTowardsZero) {
    const ButtonPoint places[] = {{42, 7}, {4, 7}, {81, 7}, {42, 4}, {42, 10}};
    for (int align = 0; align < 5; ++align)
        EXPECT_EQ(iconPlace(align, 101, 30, 16, 4), places[align]) << align;
    // An icon larger than the button: -3 / 2 is -1.
    EXPECT_EQ(iconPlace(0, 13, 13, 16, 4), (ButtonPoint{-1, -1}));
}

TEST(ButtonLayoutTest, OutlinesArePointByPointThoseOfTheirStyles) {
    const PolygonOutline five = {
        {{0, 1}, {1, 0}, {79, 0}, {80, 1}, {80, 28}, {78, 30}, {2, 30}, {0, 28}}};
    const PolygonOutline eight = {
        {{0, 2}, {2, 0}, {77, 0}, {80, 3}, {80, 27}, {77, 30}, {4, 30}, {0, 26}}};
    for (const int style : {5, 7, 8, 9})
        EXPECT_EQ(std::get<PolygonOutline>(outlineOf(style, 80, 30)), style < 8 ? five : eight);
    EXPECT_TRUE(std::holds_alternative<RoundOutline>(outlineOf(10, 80, 30)));
    for (const int style : {0, 4, 6, 11, -1})
        EXPECT_TRUE(std::holds_alternative<PlainOutline>(outlineOf(style, 80, 30))) << style;
}

}  // namespace
}  // namespace velvox
