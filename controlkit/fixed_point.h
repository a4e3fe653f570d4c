// The number type of a scroll bar's value.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace velvox {

/// A 64-bit fixed-point number with four decimal places, whose sums have no rounding errors. The
/// range is -922337203685477.5808 to 922337203685477.5807; a number outside it throws Overflow.
class FixedPoint {
 public:
    static constexpr std::int64_t unitsPerOne = 10000;

    constexpr FixedPoint() = default;
    constexpr FixedPoint(std::int32_t whole) : units_(whole * unitsPerOne) {}

    /// Rounds to four decimal places, halves to even. Throws Overflow for a number that is out of
    /// range or not finite.
    FixedPoint(double number);

    static constexpr FixedPoint ofUnits(std::int64_t units) {
        FixedPoint made;
        made.units_ = units;
        return made;
    }

    double toDouble() const noexcept;

    /// Rounds to a whole number, halves to even. Throws Overflow beyond 32 bits.
    std::int32_t toWhole() const;

    /// Decimal digits without trailing zeros: "50", "-0.25".
    std::string text() const;

    friend FixedPoint operator+(FixedPoint a, FixedPoint b);
    friend FixedPoint operator-(FixedPoint a, FixedPoint b);
    // NOLINTNEXTLINE(modernize-use-nullptr): the check mistakes it for a comparison with a pointer
    friend constexpr auto operator<=>(FixedPoint, FixedPoint) = default;

 private:
    std::int64_t units_ = 0;
};

}  // namespace velvox
