#include "controlkit/fixed_point.h"

#include <cmath>
#include <limits>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

[[noreturn]] void overflow() {
    throw RuntimeFailure(Fault::Overflow, "A number is too large for four decimal places");
}

}  // namespace

FixedPoint::FixedPoint(double number) {
    // A double has 53 bits and 10000 is 625 * 16, so number * 10000 has at most 53 + 10 bits: Wide
    // holds it exactly, and it is rounded only once.
    using Wide = long double;
    static_assert(std::numeric_limits<Wide>::digits >= 63);
    const Wide units = std::nearbyint(static_cast<Wide>(number) * unitsPerOne);
    constexpr Wide limit = 9223372036854775808.0L;
    if (!(units >= -limit && units < limit)) overflow();
    units_ = static_cast<std::int64_t>(units);
}

double FixedPoint::toDouble() const noexcept {
    return static_cast<double>(units_) / static_cast<double>(unitsPerOne);
}

std::int32_t FixedPoint::toWhole() const {
    std::int64_t whole = units_ / unitsPerOne;
    const std::int64_t twice = 2 * (units_ % unitsPerOne);
    const bool odd = whole % 2 != 0;
    if (twice > unitsPerOne || (twice == unitsPerOne && odd)) ++whole;
    if (twice < -unitsPerOne || (twice == -unitsPerOne && odd)) --whole;
    if (whole < std::numeric_limits<std::int32_t>::min() ||
        whole > std::numeric_limits<std::int32_t>::max())
        overflow();
    return static_cast<std::int32_t>(whole);
}

std::string FixedPoint::text() const {
    const std::int64_t whole = units_ / unitsPerOne;
    const std::int64_t rest = std::abs(units_ % unitsPerOne);
    std::string digits = std::to_string(whole);
    if (units_ < 0 && whole == 0) digits.insert(0, "-");
    if (rest == 0) return digits;
    std::string decimals = std::to_string(unitsPerOne + rest);
    decimals[0] = '.';
    return digits + decimals.substr(0, decimals.find_last_not_of('0') + 1);
}

FixedPoint operator+(FixedPoint a, FixedPoint b) {
    FixedPoint sum;
    if (__builtin_add_overflow(a.units_, b.units_, &sum.units_)) overflow();
    return sum;
}

FixedPoint operator-(FixedPoint a, FixedPoint b) {
    FixedPoint difference;
    if (__builtin_sub_overflow(a.units_, b.units_, &difference.units_)) overflow();
    return difference;
}

}  // namespace velvox
