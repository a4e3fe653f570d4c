#include "base/colour.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

struct FixedColours : SystemColours {
    Rgb colour(int index) const override { return rgb(index, 0, 0xFF); }
};

TEST(ColourTest, TranslatesSystemColoursAndRefusesUnknownOnes) {
    const FixedColours table;
    EXPECT_EQ(translate(0x8000000F, table), rgb(15, 0, 0xFF));
    EXPECT_EQ(translate(0x02123456, table), 0x123456);
    EXPECT_EQ(translate(0x8000FFFF, table), -1);
    EXPECT_EQ(translate(0x7F000000, table), -1);
}

TEST(ColourTest, ArithmeticRoundsAndClampsEachChannel) {
    EXPECT_EQ(average(rgb(0, 1, 255), rgb(1, 2, 254)), rgb(0, 2, 254)) << "halves to even";
    EXPECT_EQ(shift(rgb(0xE0, 250, 5), -21), rgb(0xCB, 229, 0));
    EXPECT_EQ(shift(rgb(0, 250, 5), 21), rgb(21, 255, 26));
    EXPECT_EQ(lighten(rgb(100, 0, 255), 100), rgb(160, 100, 255)) << "60.8 is truncated";
    EXPECT_EQ(blend(rgb(1, 2, 3), rgb(9, 9, 9), 0, 1), rgb(1, 2, 3));
    EXPECT_EQ(blend(rgb(0, 100, 255), rgb(255, 0, 255), 15, 16), rgb(255, 0, 255))
        << "ends exactly";
}

TEST(ColourTest, TextIsMovedToTheLeastContrastThatIsAskedFor) {
    constexpr Rgb black = rgb(0, 0, 0);
    constexpr Rgb white = rgb(255, 255, 255);
    EXPECT_DOUBLE_EQ(contrast(black, white), 21);
    EXPECT_DOUBLE_EQ(contrast(white, black), 21);
    EXPECT_NEAR(contrast(rgb(0x77, 0x77, 0x77), white), 4.48, 0.005);
    EXPECT_NEAR(contrast(rgb(0, 0, 255), black), 2.44, 0.005);
    const struct {
        Rgb text, background;
        double ratio;
    } rows[] = {{rgb(0, 0, 255), black, 7},     {rgb(0, 102, 204), rgb(32, 32, 32), 4.5},
                {rgb(128, 128, 255), black, 7}, {rgb(255, 255, 0), white, 7},
                {rgb(255, 0, 0), white, 4.5},   {rgb(118, 118, 118), rgb(117, 117, 117), 4.5}};
    for (const auto& row : rows) {
        const double reached =
            contrast(legible(row.text, row.background, row.ratio), row.background);
        EXPECT_GE(reached, row.ratio);
        EXPECT_LT(reached, row.ratio * 1.2) << "no further than needed";
    }
    EXPECT_EQ(legible(rgb(0, 0, 255), white, 7), rgb(0, 0, 255));
    EXPECT_EQ(legible(rgb(1, 2, 3), rgb(119, 119, 119), 7), black) << "the best there is";
}

}  // namespace
}  // namespace velvox
