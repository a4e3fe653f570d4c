#include "gallery/scrolled_length.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(ScrolledLengthTest, ValuesAreThePicturesOwnAndReachItsEnd) {
    for (int dpi = 96; dpi <= 240; ++dpi) {
        const ScrolledLength length{1600, 517 * dpi / 96, dpi};
        for (int value = 0; value < length.max(); value += 100)
            EXPECT_EQ(length.offset(value), scaled(value, dpi)) << "where the grid says " << value;
        EXPECT_EQ(length.offset(length.max()) + length.view, scaled(1600, dpi)) << dpi;
        EXPECT_NEAR(length.shown(), 517, 1) << dpi;
    }
    EXPECT_EQ((ScrolledLength{100, 300, 144}.max()), 0);
    EXPECT_EQ((ScrolledLength{100, 300, 144}.offset(7)), 0);
}

}  // namespace
}  // namespace velvox
