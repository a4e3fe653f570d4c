#include "controlkit/gradient.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(GradientTest, CornersAndComponents) {
    const std::array<GradientVertex, 2> expected{
        {{-3, 4, 0x0100, 0x8000, 65280, 0}, {97, 54, 65280, 0, 0, 0}}};
    EXPECT_EQ(gradientVertices(0x00FF8001, 0x000000FF, -3, 4, 100, 50), expected);
}

}  // namespace
}  // namespace velvox
