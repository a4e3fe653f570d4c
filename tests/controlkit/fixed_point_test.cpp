#include "controlkit/fixed_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr auto maxUnits = std::numeric_limits<std::int64_t>::max();
constexpr auto minUnits = std::numeric_limits<std::int64_t>::min();

TEST(FixedPointTest, RoundsToFourDecimalsHalvesToEven) {
    const std::pair<double, std::int64_t> rows[] = {
        {0.00005, 1},  // the nearest double lies above the half
        {1.0 / 32 + 1.0 / 131072, 313},
        {0.03125, 312},
        {0.09375, 938},
        {-0.03125, -312},
        {-0.09375, -938},
        {1.00005, 10001},  // a product rounded to double would hide the rest
        {2147483647.0, 21474836470000},
        {922337203685477.5, 9223372036854775000},
        {-922337203685477.5, -9223372036854775000}};
    for (const auto& [number, units] : rows) EXPECT_EQ(FixedPoint(number).units(), units) << number;
    for (const double beyond : {922337203685477.625, -922337203685477.625, 1e300,
                                std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_THROW((void)FixedPoint(beyond), RuntimeFailure) << beyond;
    EXPECT_THROW(FixedPoint::ofUnits(maxUnits) + FixedPoint::ofUnits(1), RuntimeFailure);
    EXPECT_THROW(FixedPoint::ofUnits(minUnits) - FixedPoint::ofUnits(1), RuntimeFailure);
    EXPECT_EQ((FixedPoint::ofUnits(maxUnits) - FixedPoint(1)).units(), maxUnits - 10000);
}

TEST(FixedPointTest, TurnsIntoWholeNumbersHalvesToEven) {
    const std::pair<double, std::int32_t> rows[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {2.5001, 3},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5001, -3},
        {-2.4999, -2},
        {-7.0, -7},
        {2147483647.5 - 0.5001, 2147483647},
        {-2147483648.5, std::numeric_limits<std::int32_t>::min()}};
    for (const auto& [number, whole] : rows)
        EXPECT_EQ(FixedPoint(number).toWhole(), whole) << number;
    EXPECT_THROW((void)FixedPoint(2147483647.5).toWhole(), RuntimeFailure);
}

TEST(FixedPointTest, AddsExactlyAndWritesItselfOut) {
    FixedPoint sum;
    for (int i = 0; i < 10000; ++i) sum = sum + FixedPoint(0.1);
    EXPECT_EQ(sum.text(), "1000");
    EXPECT_LT(FixedPoint(-1), FixedPoint(-0.9999));
    EXPECT_EQ(FixedPoint(-0.25).text(), "-0.25");
    EXPECT_EQ(FixedPoint(-12.0305).text(), "-12.0305");
    EXPECT_EQ(FixedPoint::ofUnits(minUnits).text(), "-922337203685477.5808");
}

}  // namespace
}  // namespace velvox
