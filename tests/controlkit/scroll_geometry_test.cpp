#include "controlkit/scroll_geometry.h"

#include <gtest/gtest.h>

#include <limits>

namespace velvox {
namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();

// Properties that hold for all numbers are checked by the fuzz target `scroll_geometry`.

/// A bar with arrows of 10 pixels and a thumb of at least 8.
ScrollMeasure measure(int length, std::int32_t min, std::int32_t max, std::int32_t page,
                      FixedPoint value) {
    return {length, 10, 8, min, max, page, value};
}

TEST(ScrollGeometryTest, ThumbFollowsValueAndPage) {
    // A track of 110 pixels for a range of 100 and a page of 10. If there is nothing to scroll, the
    // thumb fills the track. A tiny bar has no thumb.
    const std::tuple<int, std::int32_t, std::int32_t, double, Span> rows[] = {
        {130, 100, 10, 50, {60, 10}},
        {130, 100, 10, 0, {10, 10}},
        {130, 100, 10, 100, {110, 10}},
        {130, 100, 100, 100, {65, 55}},
        {130, 1000000, 100, 1000000, {112, 8}},
        {130, 0, 10, 50, {10, 110}},
        {130, lowest, 0, 50, {10, 110}},
        {28, 100, 10, 0, {10, 8}},
        {27, 100, 10, 0, {10, 0}},
        {15, 100, 10, 0, {7, 0}}};
    for (const auto& [length, max, page, value, thumb] : rows)
        EXPECT_EQ(ScrollGeometry(measure(length, 0, max, page, value)).thumb(), thumb)
            << length << ' ' << max << ' ' << value;
    EXPECT_EQ(ScrollGeometry(measure(130, 0, 4, 1, 0)).valueAt(10 + 13), FixedPoint(1))
        << "of 0.59";
    EXPECT_EQ(ScrollGeometry(measure(130, 7, 7, 10, 7)).valueAt(60), FixedPoint(7));
}

}  // namespace
}  // namespace velvox
