// The number that a scroll bar counts in.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace velvox {

/// A 64-bit fixed-point number with four decimal places: exact steps, no drift. It reaches from
/// -922337203685477.5808 to 922337203685477.5807; what lies beyond throws Overflow.
class FixedPoint {
 public:
    static constexpr std::int64_t unitsPerOne = 10000;

    constexpr FixedPoint() = default;
    constexpr FixedPoint(std::int32_t whole) : units_(whole * unitsPerOne) {}

    /// The nearest number of four decimals, halves to even. Throws Overflow, also for a number
    /// that is not finite.
    FixedPoint(double number);

    static constexpr FixedPoint ofUnits(std::int64_t units) {
        FixedPoint made;
        made.units_ = units;
        return made;
    }

    /// The number in ten-thousandths.
    constexpr std::int64_t units() const noexcept { return units_; }

    double toDouble() const noexcept;

    /// The nearest whole number, halves to even. Throws Overflow beyond 32 bits.
    std::int32_t toWhole() const;

    /// Decimal digits without trailing zeros: "50", "-0.25".
    std::string text() const;

    friend FixedPoint operator+(FixedPoint a, FixedPoint b);
    friend FixedPoint operator-(FixedPoint a, FixedPoint b);
    // NOLINTNEXTLINE(modernize-use-nullptr): taken for a comparison with a pointer
    friend constexpr auto operator<=>(FixedPoint, FixedPoint) = default;

 private:
    std::int64_t units_ = 0;
};

}  // namespace velvox
