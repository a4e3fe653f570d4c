#include "controlkit/fixed_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(FixedPointTest, RoundsHalvesToEvenToFourDecimalsAndToWholeNumbers) {
    // The doubles nearest to 0.00005 and 1.00005 are above these numbers, so both round up. For
    // 1.00005 this needs an exact product: rounded to a double, it would be 10000.5.
    const std::tuple<double, const char*, std::int32_t> rows[] = {
        {0.00005, "0.0001", 0}, {0.03125, "0.0312", 0}, {-0.09375, "-0.0938", 0},
        {1.00005, "1.0001", 1}, {0.5, "0.5", 0},        {1.5, "1.5", 2},
        {-1.5, "-1.5", -2},     {-2.5, "-2.5", -2},     {-12.93, "-12.93", -13}};
    for (const auto& [number, text, whole] : rows) {
        EXPECT_EQ(FixedPoint(number).text(), text);
        EXPECT_EQ(FixedPoint(number).toWhole(), whole) << text;
    }
}

TEST(FixedPointTest, FailsBeyondItsRange) {
    constexpr auto most = FixedPoint::ofUnits(std::numeric_limits<std::int64_t>::max());
    constexpr auto least = FixedPoint::ofUnits(std::numeric_limits<std::int64_t>::min());
    constexpr auto unit = FixedPoint::ofUnits(1);
    EXPECT_EQ(least.text(), "-922337203685477.5808");
    EXPECT_EQ(FixedPoint(-2147483648.5).toWhole(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(FixedPoint(922337203685477.5).text(), "922337203685477.5");
    for (const double beyond : {922337203685477.625, -922337203685477.625,
                                std::numeric_limits<double>::infinity(), std::nan("")})
        EXPECT_THROW((void)FixedPoint(beyond), RuntimeFailure) << beyond;
    EXPECT_THROW(most + unit, RuntimeFailure);
    EXPECT_THROW(least - unit, RuntimeFailure);
    EXPECT_THROW((void)FixedPoint(2147483647.5).toWhole(), RuntimeFailure);
}

}  // namespace
}  // namespace velvox
