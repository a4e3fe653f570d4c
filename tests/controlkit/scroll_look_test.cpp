#include "controlkit/scroll_look.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <tuple>

namespace velvox {
namespace {

struct FixedColours : SystemColours {
    Rgb colour(int index) const override { return rgb(index, index, index); }
};

ScrollPartLook lookOf(const tsPrivateScroll& bar, ScrollPart part, PartState state) {
    return scrollPartLook(bar, part, state, FixedColours());
}

TEST(ScrollLookTest, EachPartTakesTheColourOfItsRoleAndTouch) {
    tsPrivateScroll bar;
    bar.BackColor(systemColour(20));
    bar.FrontColor(2);
    bar.MouseHoverColor(3);
    bar.DownColor(4);
    bar.LargeChangeColor(5);
    const auto fills = [&](ScrollPart part) {
        const auto fill = [&](PartState state) { return lookOf(bar, part, state).fill; };
        return std::array{fill(PartState::None), fill(PartState::Hover), fill(PartState::Down)};
    };
    const Rgb track = rgb(20, 20, 20);
    const Rgb faded = rgb(11, 10, 10);
    EXPECT_EQ(fills(ScrollPart::Thumb), (std::array{2, 3, 4}));
    EXPECT_EQ(fills(ScrollPart::TrackAfter), (std::array{track, track, 5}));
    bar.Enabled(false);
    EXPECT_EQ(fills(ScrollPart::Thumb), (std::array{faded, faded, faded}));
}

TEST(ScrollLookTest, LengthsScaleUpToTheEndsOfTheirType) {
    constexpr int highest = std::numeric_limits<int>::max();
    for (const auto& [length, pixels] : {std::pair{1, 2}, {-1, -2}, {12, 18}, {highest, highest}})
        EXPECT_EQ(scaled(length, 144), pixels);
    EXPECT_EQ(scaled(-highest - 1, 97), -highest - 1);
}

TEST(ScrollLookTest, AGlyphNeverVanishesInItsFill) {
    tsPrivateScroll bar;
    const Rgb border = rgb(128, 128, 255);
    EXPECT_EQ(lookOf(bar, ScrollPart::LessArrow, PartState::None).glyph, rgb(255, 255, 255));
    EXPECT_EQ(lookOf(bar, ScrollPart::LessArrow, PartState::Hover).glyph, border);
    EXPECT_EQ(lookOf(bar, ScrollPart::Thumb, PartState::None).glyph, border);
    bar.ArrowColor(rgb(255, 255, 255 - 24));
    EXPECT_NE(lookOf(bar, ScrollPart::LessArrow, PartState::Hover).glyph, border) << "just seen";
}

}  // namespace
}  // namespace velvox
