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
    const struct {
        double number;
        std::int64_t units;
    } rows[] = {
        {0.00005, 1},  // the nearest double lies above the half
        {0.5 / 16384, 0},
        {1.0 / 32 + 1.0 / 131072, 313},
        {0.03125, 312},  // exactly 312.5 units
        {0.09375, 938},  // exactly 937.5
        {-0.03125, -312},
        {-0.09375, -938},
        {1.00005, 10001},  // slightly above the half: a product rounded to double hides that
        {2147483647.0, 21474836470000},
        {0.1 + 0.2, 3000},
    };
    for (const auto& row : rows) EXPECT_EQ(FixedPoint(row.number).units(), row.units) << row.number;
}

TEST(FixedPointTest, HoldsItsWholeRangeAndRefusesTheRest) {
    // The last double inside the range, and the first beyond it.
    EXPECT_EQ(FixedPoint(922337203685477.5).units(), 9223372036854775000);
    EXPECT_EQ(FixedPoint(-922337203685477.5).units(), -9223372036854775000);
    for (const double beyond : {922337203685477.625, -922337203685477.625, 1e300,
                                std::numeric_limits<double>::infinity(), std::nan("")}) {
        try {
            (void)FixedPoint(beyond);
            FAIL() << beyond;
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.fault(), Fault::Overflow);
        }
    }
    EXPECT_EQ(FixedPoint(std::numeric_limits<std::int32_t>::min()).units(), -21474836480000);
    EXPECT_THROW(FixedPoint::ofUnits(maxUnits) + FixedPoint::ofUnits(1), RuntimeFailure);
    EXPECT_THROW(FixedPoint::ofUnits(minUnits) - FixedPoint::ofUnits(1), RuntimeFailure);
    EXPECT_EQ((FixedPoint::ofUnits(maxUnits) - FixedPoint(1)).units(), maxUnits - 10000);
}

TEST(FixedPointTest, TurnsIntoWholeNumbersHalvesToEven) {
    const struct {
        double number;
        std::int32_t whole;
    } rows[] = {{0.5, 0},
                {1.5, 2},
                {2.5, 2},
                {2.5001, 3},
                {-0.5, 0},
                {-1.5, -2},
                {-2.5001, -3},
                {-2.4999, -2},
                {7.0, 7},
                {-7.0, -7},
                {2147483647.5 - 0.5001, 2147483647}};
    for (const auto& row : rows)
        EXPECT_EQ(FixedPoint(row.number).toWhole(), row.whole) << row.number;
    EXPECT_THROW((void)FixedPoint(2147483647.5).toWhole(), RuntimeFailure);
    EXPECT_EQ(FixedPoint(-2147483648.5).toWhole(), std::numeric_limits<std::int32_t>::min());
}

TEST(FixedPointTest, AddsExactlyAndWritesItselfOut) {
    FixedPoint sum;
    for (int i = 0; i < 10000; ++i) sum = sum + FixedPoint(0.1);
    EXPECT_EQ(sum, FixedPoint(1000));
    EXPECT_LT(FixedPoint(-1), FixedPoint(-0.9999));
    EXPECT_EQ(FixedPoint(50).text(), "50");
    EXPECT_EQ(FixedPoint(-0.25).text(), "-0.25");
    EXPECT_EQ(FixedPoint(-12.0305).text(), "-12.0305");
    EXPECT_EQ(FixedPoint::ofUnits(minUnits).text(), "-922337203685477.5808");
}

}  // namespace
}  // namespace velvox
