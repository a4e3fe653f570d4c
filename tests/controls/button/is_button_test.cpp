#include "controls/button/is_button.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <memory>
#include <tuple>
#include <vector>

#include "controls/button/is_button_layout.h"
#include "tests/controls/button/is_button_fakes.h"
#include "tests/support/property_table.h"

namespace velvox {
namespace {

const NumberedColours colours;

// At design time a button looks hot in every style but 5, and NonThemeStyle is not used.
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
    const std::function<void(isButton&)> causes[] = {
        [](isButton& b) { b.mouseUp(MouseButton::Left), b.click(); },
        [](isButton& b) { b.keyPress(' '); }, [](isButton& b) { b.activate(); },
        [](isButton& b) { b.pointerMoved(); }};
    for (const auto& cause : causes) {
        auto button = std::make_unique<isButton>("b", colours);
        ButtonLog log(*button);
        std::string after;
        button->Click = button->MouseEnter = [&, captured = std::string(64, 'x')] {
            button.reset();
            after = captured;
        };
        cause(*button);
        EXPECT_EQ(after, std::string(64, 'x'));
    }
    auto button = std::make_unique<isButton>("b", colours);
    button->PropertyChanged = [&](std::string_view) { button.reset(); };
    button->Caption("gone");
    EXPECT_EQ(button, nullptr);
}

TEST(IsButtonTest, CaptionFlagsBreakLinesUntilTheFirstResize) {
    isButton button("b", colours);
    EXPECT_EQ(button.bounds(), (Bounds{0, 0, 0, 0}));
    button.CaptionAlign(2);
    EXPECT_EQ(button.captionFlags(), 17U);
    button.Move({10, 20, 100, 4000});
    EXPECT_EQ(button.bounds(), (Bounds{10, 20, 300, 4000})) << "no side is shorter than 300 twips";
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

using testing::Property;
using testing::property;

const auto sys = NumberedColours::of;
const PicturePtr pixels = std::make_shared<SomePicture>();

/// All properties in stored order, each with the name that its setter passes to PropertyChanged.
std::vector<std::pair<const char*, Property<isButton>>> properties() {
    using B = isButton;
    const std::string cap = "cap", tip = "tip", title = "title";
    const OleColour system16 = systemColour(16);
    return {{"Icon", property("Icon", &B::Icon, &B::Icon, pixels)},
            {"Style", property("Style", &B::Style, &B::Style, 9)},
            {"Caption", property("Caption", &B::Caption, &B::Caption, cap)},
            {"IconSize", property("IconSize", &B::IconSize, &B::IconSize, 32)},
            {"CaptionAlign", property("CaptionAlign", &B::CaptionAlign, &B::CaptionAlign, 4)},
            {"IconAlign", property("IconAlign", &B::IconAlign, &B::IconAlign, 2)},
            {"NonThemeStyle", property("iNonThemeStyle", &B::NonThemeStyle, &B::NonThemeStyle, 7)},
            {"Enabled", property("Enabled", &B::Enabled, &B::Enabled, false)},
            {"ShowFocus", property("ShowFocus", &B::ShowFocus, &B::ShowFocus, true)},
            {"UseCustomColors",
             property("USeCustomColors", &B::UseCustomColors, &B::UseCustomColors, true)},
            {"BackColor", property("BackColor", &B::BackColor, &B::BackColor, system16)},
            {"HighlightColor",
             property("HighlightColor", &B::HighlightColor, &B::HighlightColor, 0xE0E0E0)},
            {"FontColor", property("FontColor", &B::FontColor, &B::FontColor, 0x008000)},
            {"FontHighlightColor",
             property("FontHighlightColor", &B::FontHighlightColor, &B::FontHighlightColor, 7)},
            {"ToolTipText", property("ToolTipText", &B::ToolTip, &B::ToolTip, tip)},
            {"TooltipTitle", property("Tooltiptitle", &B::ToolTipTitle, &B::ToolTipTitle, title)},
            {"TooltipIcon", property("ToolTipIcon", &B::ToolTipIcon, &B::ToolTipIcon, 2)},
            {"ToolTipType", property("ToolTipType", &B::ToolTipType, &B::ToolTipType, 3)},
            {"ToolTipBackColor",
             property("ttBackColor", &B::ToolTipBackColor, &B::ToolTipBackColor, system16)},
            {"ToolTipForeColor",
             property("ttForeColor", &B::ToolTipForeColor, &B::ToolTipForeColor, 0)},
            {"Font", property("Font", &B::Font, &B::Font, Font{.points = 12})},
            {"ButtonType", property("ButtonType", &B::ButtonType, &B::ButtonType, 1)},
            {"Value", property("Value", &B::Value, &B::Value, true)}};
}

ControlChange changeOf(std::string_view key) {
    if (key == "Caption") return ControlChange::Text;
    return key == "Enabled" ? ControlChange::Enabled : ControlChange::Appearance;
}

PropertyBag written(const isButton& button) {
    PropertyBag bag;
    button.WriteProperties(bag);
    return bag;
}

// A setter stores, notifies and repaints once, in this order. The value is stored and read under
// the property's key and changes the look.
TEST(IsButtonTest, EveryPropertyIsNotifiedRepaintedStoredAndShown) {
    isButton all("all", colours);
    std::vector<PropertyBag::Entry> stored;
    for (const auto& [name, p] : properties()) {
        SCOPED_TRACE(p.key);
        isButton button("b", colours);
        ButtonLog log(button);
        std::string notified;
        button.PropertyChanged = [&, &p = p](std::string_view property) {
            notified += property;
            EXPECT_TRUE(p.isSet(button) && log.text.empty());
        };
        p.set(button);
        EXPECT_EQ(notified, name);
        EXPECT_EQ(log.changes, std::vector{changeOf(p.key)});

        p.set(all);
        stored.push_back({p.key, p.value});
        std::string lowerCase(p.key);
        for (char& c : lowerCase) c = static_cast<char>(std::tolower(c));
        isButton copy("c", colours);
        copy.ReadProperties({{lowerCase, p.value}});
        EXPECT_TRUE(p.isSet(copy));
    }
    EXPECT_EQ(written(all).entries(), stored);

    EXPECT_EQ(all.visualState(), ButtonState::Disabled);
    all.gotFocus();
    const ButtonLook look = all.look();
    EXPECT_TRUE(look.focusShown && look.customColours);
    EXPECT_EQ(std::tuple(look.style, look.caption, look.icon, look.iconSize, look.iconAlign),
              std::tuple(9, "cap", pixels, 32, 2));
    const auto& [back, highlight, font, fontHighlight] = look.colours;
    EXPECT_EQ(std::tuple(back, highlight, font, fontHighlight),
              std::tuple(sys(16), 0xE0E0E0, 0x008000, 7));
    EXPECT_EQ(look.font, Font{.points = 12});
    const ButtonToolTip shown = all.toolTipRecord();
    EXPECT_EQ(std::tuple(shown.text, shown.title, shown.icon, shown.type),
              std::tuple("tip", "title", 2, 3));
    EXPECT_EQ(std::tuple(shown.backColour, shown.foreColour), std::tuple(sys(16), 0));
}

// Two properties have different defaults for reading and for writing.
TEST(IsButtonTest, FreshAndReadControls) {
    using namespace std::string_literals;
    isButton button("fresh", colours);
    // Unset tool tip colours are not written, because as 0 they would be read as black on black.
    const PropertyBag fresh{{"Icon", PicturePtr()}, {"Style", 0},         {"Caption", "fresh"s},
                            {"iNonThemeStyle", 0},  {"ToolTipText", ""s}, {"Tooltiptitle", ""s},
                            {"ToolTipIcon", 0},     {"ToolTipType", 0},   {"Font", Font{}}};
    EXPECT_EQ(written(button), fresh);
    EXPECT_FALSE(button.toolTipRecord().backColour || button.toolTipRecord().foreColour);
    EXPECT_FALSE(button.toolTipRecord().centred);
    ButtonLog log(button);
    ButtonAmbient ambient;
    ambient.font = {.name = "Ambient"};
    ambient.toolTipText = "of the container";
    button.ReadProperties({}, ambient);
    EXPECT_EQ(log.changes,
              (std::vector{ControlChange::Other, ControlChange::Text, ControlChange::Enabled}));
    const PropertyBag read{{"Icon", PicturePtr()}, {"Caption", "isButton"s},
                           {"IconAlign", 1},       {"ToolTipText", ambient.toolTipText},
                           {"Tooltiptitle", ""s},  {"ToolTipIcon", 0},
                           {"ToolTipType", 1},     {"Font", ambient.font}};
    EXPECT_EQ(written(button), read);
    EXPECT_EQ(std::tuple(button.Style(), button.NonThemeStyle(), button.IconSize()),
              std::tuple(3, 5, 16));
    EXPECT_EQ(button.BackColor(), static_cast<OleColour>(sys(15)));
    EXPECT_EQ(button.HighlightColor(), static_cast<OleColour>(sys(13)));
    EXPECT_EQ(button.FontColor(), static_cast<OleColour>(sys(18)));
    EXPECT_EQ(button.FontHighlightColor(), static_cast<OleColour>(sys(18)));
    EXPECT_EQ(button.toolTipRecord().backColour, 0) << "a black that is read counts as set";
    EXPECT_EQ(button.toolTipRecord().foreColour, sys(InfoBackColour));
    EXPECT_THROW(button.ReadProperties({{"style", "five"s}}), std::runtime_error);

    button.ShowFocus(true);
    const ButtonLook before = button.look();
    EXPECT_TRUE(!before.focused && !before.focusShown);
    button.gotFocus();
    EXPECT_TRUE(button.look().focused && button.look().focusShown);
    log.text.clear();
    button.About(), button.OpenLink("http://a/"), button.Refresh();
    EXPECT_EQ(log.text, "Ahttp://a/.");
}

TEST(ButtonLayoutTest, IconsArePlacedWithHalvesCutTowardsZero) {
    const Point places[] = {{42, 7}, {4, 7}, {81, 7}, {42, 4}, {42, 10}};
    for (int align = 0; align < 5; ++align)
        EXPECT_EQ(iconPlace(align, 101, 30, 16, 4), places[align]) << align;
    // An icon larger than the button has a negative position: -3 / 2 is -1.
    EXPECT_EQ(iconPlace(0, 13, 13, 16, 4), (Point{-1, -1}));
}

TEST(ButtonLayoutTest, OutlinesArePointByPointThoseOfTheirStyles) {
    const PolygonOutline five = {
        {{0, 1}, {1, 0}, {79, 0}, {80, 1}, {80, 28}, {78, 30}, {2, 30}, {0, 28}}};
    const PolygonOutline eight = {
        {{0, 2}, {2, 0}, {77, 0}, {80, 3}, {80, 27}, {77, 30}, {4, 30}, {0, 26}}};
    for (const int style : {5, 7, 8, 9})
        EXPECT_EQ(std::get<PolygonOutline>(outlineOf(style, 80, 30)), style < 8 ? five : eight);
    EXPECT_EQ(std::get<RoundOutline>(outlineOf(10, 80, 60)).ellipse, 48);
    for (const int style : {0, 4, 6, 11, -1})
        EXPECT_TRUE(std::holds_alternative<PlainOutline>(outlineOf(style, 80, 30))) << style;
}

}  // namespace
}  // namespace velvox
