#include "controls/is_button.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "base/twips.h"
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

struct Sequence {
    const char* steps;
    const char* log;  // C, E, L events; t leave notice, T tool tip, "." repaint
    ButtonState state;
    bool value;
};

TEST(IsButtonTest, SequencesRaiseTheirEventsAndEndInTheirState) {
    using enum ButtonState;
    const Sequence table[] = {
        {"enter enter leave", "t.ET.L", Normal, false},
        // One press and release: the state changes three times, and so often it is painted.
        {"enter down up click leave", "t.ET..C.L", Normal, false},
        {"enter down", "t.ET.", Pressed, false},
        {"down up", "..", Hot, false},
        // The right button presses nothing and makes the click void.
        {"rdown rup click", "", Normal, false},
        {"down up click rdown rup click", "..C", Hot, false},
        // Without a mouse-up of the left button there is no click, and no double click.
        {"click double", "", Normal, false},
        {"down up click double up click", "..C..C", Hot, false},
        {"rup double", "", Normal, false},
        // Leaving while pressed, and pressed again on the way back.
        {"enter down leave", "t.ET..L", Normal, false},
        {"enter down off-edge", "t.ET..", Hot, false},
        {"down off-edge off-edge on-edge", "...", Pressed, false},
        {"down off-edge up leave", "....L", Normal, false},
        {"off-edge down", ".", Pressed, false},
        {"enter down cancel", "t.ET..", Hot, false},
        {"down cancel cancel", "..", Normal, false},
        // Space clicks by its character; again, since its release counts as the left button.
        {"press", ".C", Pressed, false},
        {"press release press release", ".C..CC.", Hot, false},
        {"down up click press release", "..C.CC.", Hot, false},
        {"other", "", Normal, false},
        // What the keyboard leaves behind goes with the focus.
        {"focus press release blur", "..C..", Normal, false},
        {"focus press blur", "..C.", Normal, false},
        {"enter focus blur", "t.ET..", Hot, false},
        // A toggle button stays pressed between the clicks and takes two to come back.
        {"toggle down up", "...", Pressed, false},
        {"toggle down up click", "....C", Pressed, true},
        {"toggle enter down up click leave", ".t.ET...C.L", Pressed, true},
        {"toggle down up click down up click", "....C...C", Hot, false},
        {"toggle press release", "..C.", Pressed, false},
        {"toggle press release press release", "..C..C.C.", Pressed, true},
        {"on", ".", Normal, true},
        {"toggle on leave", "...L", Pressed, true},
        // Disabled: nothing but the hover's events and the last button.
        {"disable down up click double press release activate", ".", Disabled, false},
        {"disable up enable click", "..C", Normal, false},
        {"down up disable rup enable click", "....", Normal, false},
        {"toggle on disable", "...", Disabled, true},
        {"enter down disable up click enable", "t.ET...", Hot, false},
        {"down disable enable", "...", Normal, false},
        {"disable enter leave", ".t.ET.L", Disabled, false},
        // Enter, mnemonics and tools click once, whatever came before.
        {"activate", "C", Normal, false},
        {"down up click activate", "..CC", Hot, false},
        {"toggle activate", "..C", Pressed, true},
        {"toggle activate activate", "..C.C", Normal, false},
        // Where nothing reports the leaving there is no hot look to get stuck in.
        {"untracked down up click", "..C", Normal, false},
        {"untracked down", ".", Pressed, false},
    };
    for (const Sequence& row : table) {
        isButton button("b", colours);
        ButtonLog log(button);
        std::istringstream steps(row.steps);
        for (std::string word; steps >> word;) step(button, word);
        EXPECT_EQ(log.text, row.log) << row.steps;
        EXPECT_EQ(button.visualState(), row.state) << row.steps;
        EXPECT_EQ(button.Value(), row.value) << row.steps;
    }
}

TEST(IsButtonTest, TheLastButtonIsRememberedAlsoWhileDisabled) {
    isButton button("b", colours);
    button.Enabled(false);
    button.mouseUp(MouseButton::Right);
    EXPECT_EQ(button.lastMouseButton(), MouseButton::Right);
    button.mouseUp(MouseButton::Middle);
    EXPECT_EQ(button.lastMouseButton(), MouseButton::Middle);
}

TEST(IsButtonTest, DesignTimeShowsEveryStyleHotExceptFive) {
    isButton button("b", colours);
    ButtonAmbient design;
    design.userMode = false;
    button.ReadProperties({}, design);
    EXPECT_EQ(button.visualState(), ButtonState::Hot);
    button.Style(5);
    EXPECT_EQ(button.visualState(), ButtonState::Normal);
    button.Style(11);
    button.Enabled(false);
    EXPECT_EQ(button.visualState(), ButtonState::Disabled);
    // The fallback of the visual styles is a matter of run time.
    button.Style(6);
    button.themeRefused();
    EXPECT_EQ(button.Style(), 6);
}

TEST(IsButtonTest, RefusedThemesChangeTheStyleSilently) {
    isButton button("b", colours);
    std::string told;
    button.NonThemeStyle(2);
    button.Style(6);
    button.PropertyChanged = [&](std::string_view name) { told += name; };
    button.themeRefused();
    EXPECT_EQ(button.Style(), 2);
    EXPECT_EQ(told, "");
}

TEST(IsButtonTest, EverySetterStoresNotifiesAndRepaintsOnce) {
    isButton button("b", colours);
    ButtonLog log(button);
    std::string told;
    button.PropertyChanged = [&](std::string_view name) { (told += name) += ' '; };
    Font font;
    font.bold = true;
    button.Caption("c"), button.IconSize(24), button.CaptionAlign(2), button.IconAlign(3);
    button.NonThemeStyle(1), button.Enabled(false), button.ShowFocus(true);
    button.UseCustomColors(true), button.BackColor(1), button.HighlightColor(2);
    button.FontColor(3), button.FontHighlightColor(4), button.ToolTip("t");
    button.ToolTipTitle("tt"), button.ToolTipIcon(1), button.ToolTipType(1);
    button.ToolTipBackColor(5), button.ToolTipForeColor(6), button.Font(font);
    button.ButtonType(1), button.Value(true), button.Icon(nullptr), button.Style(7);
    EXPECT_EQ(told,
              "Caption IconSize CaptionAlign IconAlign NonThemeStyle Enabled ShowFocus "
              "UseCustomColors BackColor HighlightColor FontColor FontHighlightColor ToolTipText "
              "TooltipTitle TooltipIcon ToolTipType ToolTipBackColor ToolTipForeColor Font "
              "ButtonType Value Icon Style ");
    EXPECT_EQ(log.repaints, 23);
    EXPECT_EQ(button.Caption(), "c");
    EXPECT_EQ(button.IconSize(), 24);
    EXPECT_EQ(button.IconAlign(), 3);
    EXPECT_EQ(button.HighlightColor(), 2U);
    EXPECT_EQ(button.ToolTipForeColor(), 6U);
    EXPECT_TRUE(button.Font().bold);
    const ButtonLook look = button.look();
    EXPECT_EQ(look.style, 7);
    EXPECT_EQ(look.state, ButtonState::Disabled);
    EXPECT_TRUE(look.customColours);
    EXPECT_FALSE(look.focusShown);
}

TEST(IsButtonTest, OnlyTheFourSubclassedMessagesMeanSomething) {
    isButton button("b", colours);
    ButtonLog log(button);
    for (const unsigned message : {512U, 513U, 15U, 794U, 21U, 675U, 0U})
        button.zSubclass_Proc(message);
    EXPECT_EQ(log.text, "t.ET...L");
}

TEST(IsButtonTest, FocusIsShownOnlyWhenAskedFor) {
    isButton button("b", colours);
    button.gotFocus();
    EXPECT_TRUE(button.look().focused);
    EXPECT_FALSE(button.look().focusShown);
    button.ShowFocus(true);
    EXPECT_TRUE(button.look().focusShown);
    button.lostFocus();
    EXPECT_FALSE(button.look().focusShown);
}

TEST(IsButtonTest, HandlersMayDestroyTheButton) {
    const char* const sequences[] = {"up click", "press", "toggle up click", "enter", "activate"};
    for (const char* const sequence : sequences) {
        auto button = std::make_unique<isButton>("b", colours);
        ButtonLog log(*button);
        const auto end = [&] { button.reset(); };
        button->Click = end;
        button->MouseEnter = end;
        isButton& borrowed = *button;
        std::istringstream steps(sequence);
        for (std::string word; steps >> word;) step(borrowed, word);
        EXPECT_EQ(button, nullptr) << sequence;
    }
    auto button = std::make_unique<isButton>("b", colours);
    button->PropertyChanged = [&](std::string_view) { button.reset(); };
    button->Caption("gone");
    EXPECT_EQ(button, nullptr);
}

TEST(IsButtonTest, AThrowingHandlerLeavesTheStateInOrder) {
    isButton button("b", colours);
    button.Click = [] { throw std::runtime_error("the handler failed"); };
    button.ButtonType(1);
    button.mouseDown(MouseButton::Left);
    button.mouseUp(MouseButton::Left);
    EXPECT_THROW(button.click(), std::runtime_error);
    EXPECT_TRUE(button.Value());
    EXPECT_EQ(button.visualState(), ButtonState::Pressed);
    button.Click = nullptr;
    button.click();
    EXPECT_FALSE(button.Value());
}

TEST(IsButtonTest, AnEventThatReplacesItselfEndsItsOwnRun) {
    isButton button("b", colours);
    std::string log;
    button.Click = [&, captured = std::string(64, 'x')] {
        button.Click = nullptr;
        log = captured;
    };
    button.activate();
    EXPECT_EQ(log, std::string(64, 'x'));
}

TEST(IsButtonTest, NoSideIsShorterThanThreeHundredTwips) {
    isButton button("b", colours);
    button.Move({10, 20, 100, 4000});
    EXPECT_EQ(button.place(), (Place{10, 20, 300, 4000}));
    button.Height(299);
    EXPECT_EQ(button.Height(), 300);
    button.Height(301);
    EXPECT_EQ(button.Height(), 301);
    EXPECT_THROW(button.Width(-1), std::runtime_error);
}

TEST(IsButtonTest, CaptionFlagsBreakLinesUntilTheFirstResize) {
    isButton button("b", colours);
    EXPECT_EQ(button.captionFlags(), 17U);
    button.CaptionAlign(2);
    EXPECT_EQ(button.captionFlags(), 17U);
    button.Move({0, 0, 1500, 450});
    EXPECT_EQ(button.captionFlags(), 38U);
    const unsigned flags[] = {37, 36, 38, 33, 41};
    for (int align = 0; align < 5; ++align) {
        button.CaptionAlign(align);
        EXPECT_EQ(button.captionFlags(), flags[align]) << align;
    }
    button.CaptionAlign(5);
    EXPECT_EQ(button.captionFlags(), 41U);
}

TEST(IsButtonTest, AboutAndLinksGoToTheWindow) {
    isButton button("b", colours);
    button.About();
    button.OpenLink("nobody listens");
    ButtonLog log(button);
    button.About();
    button.OpenLink("http://a/");
    EXPECT_EQ(log.text, "Ahttp://a/");
    EXPECT_EQ(button.Version(), "3.0");
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

TEST(ButtonLayoutTest, MarginsFollowTheStyle) {
    const int margins[] = {4, 4, 4, 4, 4, 5, 4, 5, 4, 7, 7, 4};
    for (int style = 0; style < 12; ++style) EXPECT_EQ(iconMargin(style), margins[style]) << style;
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
