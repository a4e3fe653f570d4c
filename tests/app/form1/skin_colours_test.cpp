#include "app/form1/skin_colours.h"

#include <gtest/gtest.h>

#include <map>

#include "app/form1/skin_palette.h"

namespace velvox {
namespace {

struct Scheme : SystemColours {
    const char* name;
    bool high;
    std::map<int, Rgb> colours;

    Scheme(const char* called, bool highContrast, Rgb window, Rgb text, Rgb button, Rgb buttonText,
           Rgb grey)
        : name(called),
          high(highContrast),
          colours{{WindowColour, window},
                  {WindowTextColour, text},
                  {ButtonFaceColour, button},
                  {ButtonTextColour, buttonText},
                  {GrayTextColour, grey}} {}
    Rgb colour(int index) const override { return colours.at(index); }
};

constexpr Rgb black = rgb(0, 0, 0);
constexpr Rgb white = rgb(255, 255, 255);

const Scheme schemes[] = {
    {"light", false, white, black, rgb(240, 240, 240), black, rgb(109, 109, 109)},
    {"classic", false, white, black, rgb(212, 208, 200), black, rgb(128, 128, 128)},
    {"dark", false, rgb(32, 32, 32), white, rgb(51, 51, 51), white, rgb(160, 160, 160)},
    {"dark windows alone", false, black, rgb(0, 255, 0), rgb(240, 240, 240), black,
     rgb(96, 96, 96)},
    {"dark buttons alone", false, white, black, black, rgb(255, 255, 0), rgb(96, 96, 96)},
    {"pale grey", false, white, black, rgb(240, 240, 240), black, rgb(220, 220, 220)},
    {"high contrast, dark", true, black, rgb(255, 255, 0), black, white, rgb(0, 255, 0)},
    {"high contrast, light", true, white, black, white, black, rgb(96, 0, 0)},
};

TEST(SkinColoursTest, TextCanBeReadOnTheSkinInEveryScheme) {
    for (const Scheme& scheme : schemes) {
        SCOPED_TRACE(scheme.name);
        SkinColours colours(scheme);
        EXPECT_GE(contrast(colours.colour(ButtonTextColour), palette::button), textContrast);
        EXPECT_GE(contrast(colours.colour(WindowTextColour), palette::box), textContrast);
        EXPECT_GE(contrast(colours.colour(GrayTextColour), palette::button), 2);
        EXPECT_GE(contrast(colours.colour(ButtonTextColour), colours.colour(ButtonFaceColour)),
                  textContrast);
        colours.setHighContrast(scheme.high);
        const std::string name = scheme.name;
        if (!scheme.high && name != "light" && name != "classic") continue;
        for (const auto& [index, colour] : scheme.colours)
            EXPECT_EQ(colours.colour(index), colour) << "needs no other colour";
    }
    // The skin's own pairs of colours, except those of the blinking home link.
    for (const Rgb surface : {palette::form, palette::area, palette::strip})
        for (const Rgb text : {palette::text, palette::quietText, palette::linkText})
            EXPECT_GE(contrast(text, surface), textContrast);
}

}  // namespace
}  // namespace velvox
