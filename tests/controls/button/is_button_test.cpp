#include "controls/button/is_button.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <memory>
#include <sstream>
#include <type_traits>
#include <vector>

#include "controls/button/is_button_layout.h"
#include "tests/controls/button/is_button_fakes.h"

namespace velvox {
namespace {

using namespace std::string_literals;

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
        {"disable", [](isButton& b) { b.Enabled(false); }},
        {"enable", [](isButton& b) { b.Enabled(true); }},
        {"toggle", [](isButton& b) { b.ButtonType(1); }},
        {"untracked", [](isButton& b) { b.tracking(Tracking::None); }}};
    std::istringstream words(steps);
    for (std::string word; words >> word;) meanings.at(word)(button);
}

// What a user does; the fuzz target compares all other sequences with a model.
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
        {"down up click double up click", "..C..C", Hot},
        {"down off-edge off-edge on-edge", "...", Pressed},
        {"enter down cancel", "t.ET..", Hot},
        // Space clicks by its character; again, since its release counts as the left button.
        {"press release press release", ".C..CC.", Hot},
        // The focus says nothing about a press; the window ends one that has lost its release.
        {"down blur", "..", Pressed},
        {"focus press release blur cancel", "..C...", Normal},
        // A toggle button stays pressed between the clicks and takes two to come back.
        {"toggle enter down up click leave", ".t.ET...C.L", Pressed, true},
        {"toggle down up click down up click", "....C...C", Hot},
        // Disabled: nothing but the hover's events and the last button.
        {"disable down up click double press release activate", ".", Disabled},
        {"down up disable right enable click", "....", Hot},
        {"enter down disable up click enable", "t.ET...", Pressed},
        // Enter, mnemonics and tools click once, whatever came before.
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

struct Pixels : Picture {
    bool hasImage() const override { return true; }
};

template <class Kept>
PropertyValue valueOf(const Kept& kept) {
    if constexpr (std::is_same_v<Kept, OleColour>)
        return static_cast<std::int32_t>(kept);
    else
        return kept;
}
template <class Kept>
Kept keptOf(const PropertyValue& value) {
    if constexpr (std::is_same_v<Kept, OleColour>)
        return static_cast<OleColour>(std::get<std::int32_t>(value));
    else
        return std::get<Kept>(value);
}

// One stored property: how it is set, read back and seen in the picture or in the tool tip.
struct PropertyRow {
    const char* key;
    const char* notified;
    PropertyValue readDefault;
    PropertyValue writeDefault;
    PropertyValue sample;
    void (*set)(isButton&, const PropertyValue&);
    PropertyValue (*get)(const isButton&);
    PropertyValue (*shown)(const isButton&);
};
#define PROPERTY(member, key, notified, readDefault, writeDefault, sample, shown)   \
    PropertyRow {                                                                   \
        key, notified, readDefault, writeDefault, sample,                           \
            [](isButton& b, const PropertyValue& value) {                           \
                b.member(keptOf<std::remove_cvref_t<decltype(b.member())>>(value)); \
            },                                                                      \
            [](const isButton& b) { return valueOf(b.member()); },                  \
            []([[maybe_unused]] const isButton& b) { return PropertyValue(shown); } \
    }

const auto sys = NumberedColours::of;
const std::int32_t system16 = static_cast<std::int32_t>(systemColour(16));
const PicturePtr pixels = std::make_shared<Pixels>();
const Font ambientFont{.name = "Ambient"};
const PropertyValue always;  // no default: it is always written
const PropertyValue hidden;  // neither picture nor tool tip shows it

// In stored order.
const PropertyRow propertyRows[] = {
    PROPERTY(Icon, "Icon", "Icon", PicturePtr(), always, pixels, b.look().icon),
    PROPERTY(Style, "Style", "Style", 3, 3, 9, b.look().style),
    PROPERTY(Caption, "Caption", "Caption", "isButton"s, ""s, "cap"s, b.look().caption),
    PROPERTY(IconSize, "IconSize", "IconSize", 16, 16, 32, b.look().iconSize),
    PROPERTY(CaptionAlign, "CaptionAlign", "CaptionAlign", 0, 0, 4, hidden),
    PROPERTY(IconAlign, "IconAlign", "IconAlign", 1, 0, 2, b.look().iconAlign),
    PROPERTY(NonThemeStyle, "iNonThemeStyle", "NonThemeStyle", 5, 5, 7, hidden),
    PROPERTY(Enabled, "Enabled", "Enabled", true, true, false,
             b.visualState() != ButtonState::Disabled),
    PROPERTY(ShowFocus, "ShowFocus", "ShowFocus", false, false, true, b.look().focusShown),
    PROPERTY(UseCustomColors, "USeCustomColors", "UseCustomColors", false, false, true,
             b.look().customColours),
    PROPERTY(BackColor, "BackColor", "BackColor", sys(15), sys(15), system16,
             b.look().colours.back),
    PROPERTY(HighlightColor, "HighlightColor", "HighlightColor", sys(13), sys(13), 0xE0E0E0,
             b.look().colours.highlight),
    PROPERTY(FontColor, "FontColor", "FontColor", sys(18), sys(18), 0x008000,
             b.look().colours.font),
    PROPERTY(FontHighlightColor, "FontHighlightColor", "FontHighlightColor", sys(18), sys(18), 7,
             b.look().colours.fontHighlight),
    PROPERTY(ToolTip, "ToolTipText", "ToolTipText", "of the container"s, always, "tip"s,
             b.toolTipRecord().text),
    PROPERTY(ToolTipTitle, "Tooltiptitle", "TooltipTitle", ""s, always, "title"s,
             b.toolTipRecord().title),
    PROPERTY(ToolTipIcon, "ToolTipIcon", "TooltipIcon", 0, always, 2, b.toolTipRecord().icon),
    PROPERTY(ToolTipType, "ToolTipType", "ToolTipType", 1, always, 3, b.toolTipRecord().type),
    PROPERTY(ToolTipBackColor, "ttBackColor", "ToolTipBackColor", sys(23), sys(23), system16,
             b.toolTipRecord().backColour.value()),
    PROPERTY(ToolTipForeColor, "ttForeColor", "ToolTipForeColor", sys(24), sys(24), 0,
             b.toolTipRecord().foreColour.value()),
    PROPERTY(Font, "Font", "Font", ambientFont, always, Font{.points = 12}, b.look().font),
    PROPERTY(ButtonType, "ButtonType", "ButtonType", 0, 0, 1, hidden),
    PROPERTY(Value, "Value", "Value", false, false, true, hidden),
};

Aspect changeOf(std::string_view key) {
    if (key == "Caption") return Aspect::Text;
    return key == "Enabled" ? Aspect::Enabled : Aspect::Face;
}

PropertyBag written(const isButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    return bag;
}

// Each property alone: a setter stores, notifies and repaints once, in this order; what is set
// shows, and is stored and read under its key.
TEST(IsButtonTest, EveryPropertyIsNotifiedRepaintedShownAndStored) {
    ButtonAmbient ambient;
    ambient.font = ambientFont;
    ambient.toolTipText = "of the container";
    isButton all("all", colours);
    std::vector<PropertyBag::Entry> stored;
    for (const PropertyRow& row : propertyRows) {
        SCOPED_TRACE(row.key);
        isButton button("b", colours);
        button.gotFocus();
        ButtonLog log(button);
        std::string notified;
        button.PropertyChanged = [&](std::string_view name) {
            notified += name;
            EXPECT_EQ(row.get(button), row.sample);
            EXPECT_EQ(log.text, "");
        };
        row.set(button, row.sample);
        EXPECT_EQ(notified, row.notified);
        EXPECT_EQ(log.changes, std::vector{changeOf(row.key)});
        const PropertyValue shown = row.shown(button);
        const auto* number = std::get_if<std::int32_t>(&row.sample);
        EXPECT_TRUE(shown == PropertyValue() || shown == row.sample ||
                    (number && shown == PropertyValue(translate(OleColour(*number), colours))));

        row.set(all, row.sample);
        stored.push_back({row.key, row.sample});
        std::string lowerCase(row.key);
        for (char& c : lowerCase) c = static_cast<char>(std::tolower(c));
        isButton copy("c", colours);
        copy.ReadProperties({{lowerCase, row.sample}}, ambient);
        EXPECT_EQ(row.get(copy), row.sample);
        copy.ReadProperties({}, ambient);
        EXPECT_EQ(row.get(copy), row.readDefault);
        const bool isAlways = row.writeDefault == always;
        if (!isAlways) row.set(copy, row.writeDefault);
        const PropertyBag bag = written(copy);
        const auto isKey = [&](const auto& entry) { return entry.key == row.key; };
        EXPECT_EQ(std::count_if(bag.entries().begin(), bag.entries().end(), isKey), isAlways);
    }
    EXPECT_EQ(written(all).entries(), stored);
}

TEST(IsButtonTest, FreshAndReadControls) {
    isButton button("fresh", colours);
    // Tool-tip colours that are not set are not written: as 0 they would come back black on black.
    const PropertyBag fresh{{"Icon", PicturePtr()}, {"Style", 0},         {"Caption", "fresh"s},
                            {"iNonThemeStyle", 0},  {"ToolTipText", ""s}, {"Tooltiptitle", ""s},
                            {"ToolTipIcon", 0},     {"ToolTipType", 0},   {"Font", Font{}}};
    EXPECT_EQ(written(button), fresh);
    EXPECT_FALSE(button.toolTipRecord().backColour || button.toolTipRecord().foreColour);
    EXPECT_FALSE(button.toolTipRecord().centred);
    ButtonLog log(button);
    button.ReadProperties({});
    EXPECT_EQ(log.changes, (std::vector{Aspect::Setting, Aspect::Text, Aspect::Enabled}));
    EXPECT_EQ(button.toolTipRecord().backColour, 0) << "a black that is read counts as set";
    EXPECT_EQ(button.toolTipRecord().foreColour, NumberedColours::of(InfoBackColour));
    EXPECT_THROW(button.ReadProperties({{"style", "five"s}}), std::runtime_error);

    button.ShowFocus(true);
    const ButtonLook before = button.look();
    EXPECT_TRUE(!before.focused && !before.focusShown && before.userMode);
    button.gotFocus();
    EXPECT_TRUE(button.look().focused && button.look().focusShown);
    log.text.clear();
    button.About(), button.OpenLink("http://a/"), button.Refresh();
    EXPECT_EQ(log.text, "Ahttp://a/.");
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
