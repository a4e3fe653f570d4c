// The layout is stored in twips, 1440 to the inch; drawing uses pixels.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace velvox {

inline constexpr int twipsPerInch = 1440;
inline constexpr int designDpi = 96;
inline constexpr int designTwipsPerPixel = twipsPerInch / designDpi;

/// `length * to / from`, rounded to the nearest integer, halves away from zero. A result beyond the
/// range of int is clamped.
constexpr int scaleLength(int length, int to, int from) {
    const std::int64_t product = static_cast<std::int64_t>(length) * to;
    const std::int64_t half = from / 2;
    const std::int64_t rounded = (product + (product < 0 ? -half : half)) / from;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(rounded, Limits::min(), Limits::max()));
}

constexpr int toPixels(int twips, int dpi) {
    return scaleLength(twips, dpi, twipsPerInch);
}

constexpr int toTwips(int pixels, int dpi) {
    return scaleLength(pixels, twipsPerInch, dpi);
}

/// Converts pixels at `designDpi` to pixels at `dpi`.
constexpr int scaled(int pixels, int dpi) {
    return scaleLength(pixels, dpi, designDpi);
}

}  // namespace velvox
