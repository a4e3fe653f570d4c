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

}  // namespace
}  // namespace velvox
