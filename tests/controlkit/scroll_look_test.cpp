#include "controlkit/scroll_look.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

struct FixedColours : SystemColours {
    Rgb colour(int index) const override { return rgb(index, index, index); }
};

TEST(ScrollLookTest, EachPartTakesTheColourOfItsRoleAndTouch) {
    const FixedColours table;
    tsPrivateScroll bar;
    bar.BackColor(systemColour(ButtonFaceColour));
    bar.FrontColor(1);
    bar.MouseHoverColor(2);
    bar.DownColor(3);
    bar.LargeChangeColor(4);
    const auto fill = [&](ScrollPart part, Touch touch) {
        return scrollPartLook(bar, part, touch, table).fill;
    };
    for (const ScrollPart part : {ScrollPart::LessArrow, ScrollPart::Thumb}) {
        EXPECT_EQ(fill(part, Touch::None), 1);
        EXPECT_EQ(fill(part, Touch::Hover), 2);
        EXPECT_EQ(fill(part, Touch::Down), 3);
    }
    const Rgb track = rgb(ButtonFaceColour, ButtonFaceColour, ButtonFaceColour);
    EXPECT_EQ(fill(ScrollPart::TrackAfter, Touch::None), track);
    EXPECT_EQ(fill(ScrollPart::TrackAfter, Touch::Hover), track);
    EXPECT_EQ(fill(ScrollPart::TrackAfter, Touch::Down), 4);
}

TEST(ScrollLookTest, AWhiteArrowStaysVisibleAndADisabledBarFades) {
    const FixedColours table;
    const Rgb white = rgb(255, 255, 255);
    tsPrivateScroll bar;
    const auto glyph = [&](Touch touch) {
        return scrollPartLook(bar, ScrollPart::LessArrow, touch, table).glyph;
    };
    EXPECT_EQ(glyph(Touch::None), white);
    EXPECT_EQ(glyph(Touch::Hover), rgb(128, 128, 255));
    bar.FrontColor(rgb(0, 100, 200));
    bar.Enabled(false);
    const ScrollPartLook look = scrollPartLook(bar, ScrollPart::Thumb, Touch::Down, table);
    EXPECT_EQ(look.fill, average(rgb(0, 100, 200), white));
    EXPECT_EQ(look.border, average(rgb(128, 128, 255), white));
}

}  // namespace
}  // namespace velvox
