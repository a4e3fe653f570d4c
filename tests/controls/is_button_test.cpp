#include "controls/is_button.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>

#include "controls/is_button_layout.h"
#include "tests/controls/is_button_fakes.h"

namespace velvox {
namespace {

const NumberedColours colours;

// Carries out one word of a sequence.
void step(isButton& button, const std::string& word) {
    if (word == "enter") return button.pointerMoved();
    if (word == "leave") return button.pointerLeft();
    if (word == "down") return button.mouseDown(MouseButton::Left);
    if (word == "up") return button.mouseUp(MouseButton::Left);
    if (word == "rdown") return button.mouseDown(MouseButton::Right);
    if (word == "rup") return button.mouseUp(MouseButton::Right);
    if (word == "click") return button.click();
    if (word == "double") return button.doubleClick();
    if (word == "press") return button.keyDown(' '), button.keyPress(' ');
    if (word == "release") return button.keyUp(' ');
    if (word == "other") return button.keyDown('A'), button.keyPress('a'), button.keyUp('A');
    if (word == "activate") return button.activate();
    if (word == "focus") return button.gotFocus();
    if (word == "blur") return button.lostFocus();
    if (word == "disable") return button.Enabled(false);
    if (word == "enable") return button.Enabled(true);
    if (word == "toggle") return button.ButtonType(1);
    if (word == "on") return button.Value(true);
    if (word == "off-edge") return button.pointerDragged(false);
    if (word == "on-edge") return button.pointerDragged(true);
    if (word == "cancel") return button.pressCancelled();
    if (word == "untracked") return button.tracking(Tracking::None);
    FAIL() << "no such step: " << word;
}

void run(isButton& button, const char* steps) {
    std::istringstream words(steps);
    for (std::string word; words >> word;) step(button, word);
}

TEST(IsButtonTest, SequencesRaiseTheirEventsAndEndInTheirState) {
    using enum ButtonState;
    const struct {
        const char* steps;
        const char* log;  // C, E, L events; t leave notice, T tool tip, "." repaint
        ButtonState state;
        bool value = false;
    } table[] = {
        {"enter enter leave", "t.ET.L", Normal},
        // One press and release: the state changes three times, and so often it is painted.
        {"enter down up click leave", "t.ET..C.L", Normal},
        // The right button presses nothing and makes the click void.
        {"rdown rup click", "", Normal},
        {"down up click rdown rup click", "..C", Hot},
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
        {"down cancel cancel", "..", Normal},
        // Space clicks by its character; again, since its release counts as the left button.
        {"press release press release", ".C..CC.", Hot},
        {"down up click press release", "..C.CC.", Hot},
        {"other", "", Normal},
        // What the keyboard leaves behind goes with the focus.
        {"focus press release blur", "..C..", Normal},
        {"enter focus blur", "t.ET..", Hot},
        // A toggle button stays pressed between the clicks and takes two to come back.
        {"toggle down up click", "....C", Pressed, true},
        {"toggle enter down up click leave", ".t.ET...C.L", Pressed, true},
        {"toggle down up click down up click", "....C...C", Hot},
        {"toggle press release press release", "..C..C.C.", Pressed, true},
        {"on", ".", Normal, true},
        {"toggle on leave", "...L", Pressed, true},
        // Disabled: nothing but the hover's events and the last button.
        {"disable down up click double press release activate", ".", Disabled},
        {"down up disable rup enable click", "....", Normal},
        {"toggle on disable", "...", Disabled, true},
        {"enter down disable up click enable", "t.ET...", Hot},
        {"down disable enable", "...", Normal},
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
    std::string told;
    button.NonThemeStyle(2);
    button.Style(6);
    button.PropertyChanged = [&](std::string_view name) { told += name; };
    button.themeRefused();
    EXPECT_EQ(button.Style(), 2);
    EXPECT_EQ(told, "") << "silently";
    ButtonAmbient design;
    design.userMode = false;
    button.ReadProperties({}, design);
    EXPECT_EQ(button.visualState(), ButtonState::Hot);
    button.Style(5);
    EXPECT_EQ(button.visualState(), ButtonState::Normal);
    button.Style(6);
    button.Enabled(false);
    EXPECT_EQ(button.visualState(), ButtonState::Disabled);
    button.themeRefused();
    EXPECT_EQ(button.Style(), 6);
}

TEST(IsButtonTest, EverySetterNotifiesAndRepaintsOnce) {
    isButton button("b", colours);
    ButtonLog log(button);
    std::string told;
    button.PropertyChanged = [&](std::string_view name) { (told += name) += ' '; };
    button.Caption("c"), button.IconSize(24), button.CaptionAlign(2), button.IconAlign(3);
    button.NonThemeStyle(1), button.Enabled(false), button.ShowFocus(true);
    button.UseCustomColors(true), button.BackColor(1), button.HighlightColor(2);
    button.FontColor(3), button.FontHighlightColor(4), button.ToolTip("t");
    button.ToolTipTitle("tt"), button.ToolTipIcon(1), button.ToolTipType(1);
    button.ToolTipBackColor(5), button.ToolTipForeColor(6), button.Font({});
    button.ButtonType(1), button.Value(true), button.Icon(nullptr), button.Style(7);
    EXPECT_EQ(told,
              "Caption IconSize CaptionAlign IconAlign NonThemeStyle Enabled ShowFocus "
              "UseCustomColors BackColor HighlightColor FontColor FontHighlightColor ToolTipText "
              "TooltipTitle TooltipIcon ToolTipType ToolTipBackColor ToolTipForeColor Font "
              "ButtonType Value Icon Style ");
    EXPECT_EQ(log.repaints, 23);
    EXPECT_FALSE(button.look().focusShown);
    button.gotFocus();
    EXPECT_TRUE(button.look().focusShown);
    button.ShowFocus(false);
    EXPECT_FALSE(button.look().focusShown);
}

TEST(IsButtonTest, OnlyTheFourSubclassedMessagesMeanSomething) {
    isButton button("b", colours);
    ButtonLog log(button);
    for (const unsigned message : {512U, 513U, 15U, 794U, 21U, 675U, 0U})
        button.zSubclass_Proc(message);
    EXPECT_EQ(log.text, "t.ET...L");
    button.About();
    button.OpenLink("http://a/");
    EXPECT_EQ(log.text, "t.ET...LAhttp://a/");
}

TEST(IsButtonTest, HandlersMayDestroyTheButton) {
    for (const char* const sequence : {"up click", "press", "toggle up click", "enter"}) {
        auto button = std::make_unique<isButton>("b", colours);
        ButtonLog log(*button);
        button->Click = button->MouseEnter = [&] { button.reset(); };
        run(*button, sequence);
        EXPECT_EQ(button, nullptr) << sequence;
    }
    auto button = std::make_unique<isButton>("b", colours);
    button->PropertyChanged = [&](std::string_view) { button.reset(); };
    button->Caption("gone");
    EXPECT_EQ(button, nullptr);
}

TEST(IsButtonTest, AThrowingOrReplacedHandlerLeavesTheStateInOrder) {
    isButton button("b", colours);
    button.Click = [] { throw std::runtime_error("the handler failed"); };
    button.ButtonType(1);
    EXPECT_THROW(run(button, "down up click"), std::runtime_error);
    EXPECT_TRUE(button.Value());
    EXPECT_EQ(button.visualState(), ButtonState::Pressed);
    std::string log;
    button.Click = [&, captured = std::string(64, 'x')] {
        button.Click = nullptr;
        log = captured;
    };
    button.click();
    EXPECT_FALSE(button.Value());
    EXPECT_EQ(log, std::string(64, 'x'));
}

TEST(IsButtonTest, CaptionFlagsBreakLinesUntilTheFirstResize) {
    isButton button("b", colours);
    button.CaptionAlign(2);
    EXPECT_EQ(button.captionFlags(), 17U);
    button.Move({10, 20, 100, 4000});
    EXPECT_EQ(button.place(), (Place{10, 20, 300, 4000})) << "no side is shorter than 300 twips";
    EXPECT_THROW(button.Width(-1), std::runtime_error);
    const unsigned flags[] = {37, 36, 38, 33, 41, 41};
    for (int align = 0; align < 6; ++align) {
        button.CaptionAlign(align);
        EXPECT_EQ(button.captionFlags(), flags[align]) << align;
    }
}

TEST(ButtonLayoutTest, IconsArePlacedWithHalvesCutTowardsZero) {
    const int w = 101;
    const int h = 30;
    EXPECT_EQ(iconPlace(0, w, h, 16, 4), (ButtonPoint{42, 7}));
    EXPECT_EQ(iconPlace(1, w, h, 16, 4), (ButtonPoint{4, 7}));
    EXPECT_EQ(iconPlace(2, w, h, 16, 7), (ButtonPoint{78, 7}));
    EXPECT_EQ(iconPlace(3, w, h, 16, 5), (ButtonPoint{42, 5}));
    EXPECT_EQ(iconPlace(4, w, h, 16, 5), (ButtonPoint{42, 9}));
    // An icon larger than the button: -3 / 2 is -1.
    EXPECT_EQ(iconPlace(0, 13, 13, 16, 4), (ButtonPoint{-1, -1}));
}

TEST(ButtonLayoutTest, OutlinesArePointByPointThoseOfTheirStyles) {
    const PolygonOutline five = {
        {{0, 1}, {1, 0}, {79, 0}, {80, 1}, {80, 28}, {78, 30}, {2, 30}, {0, 28}}};
    const PolygonOutline eight = {
        {{0, 2}, {2, 0}, {77, 0}, {80, 3}, {80, 27}, {77, 30}, {4, 30}, {0, 26}}};
    for (const int style : {5, 7})
        EXPECT_EQ(std::get<PolygonOutline>(outlineOf(style, 80, 30)), five) << style;
    for (const int style : {8, 9})
        EXPECT_EQ(std::get<PolygonOutline>(outlineOf(style, 80, 30)), eight) << style;
    EXPECT_TRUE(std::holds_alternative<RoundOutline>(outlineOf(10, 80, 30)));
    for (const int style : {0, 1, 2, 3, 4, 6, 11, -1})
        EXPECT_TRUE(std::holds_alternative<PlainOutline>(outlineOf(style, 80, 30))) << style;
}

}  // namespace
}  // namespace velvox
