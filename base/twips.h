// Layout is kept in twips, 1440 to the inch; drawing happens in pixels.
#pragma once

namespace velvox {

inline constexpr int twipsPerInch = 1440;
inline constexpr int designDpi = 96;
inline constexpr int designTwipsPerPixel = twipsPerInch / designDpi;

/// A length in pixels at `dpi`, rounded to the nearest, halves away from zero.
constexpr int toPixels(int twips, int dpi) {
    const long long scaled = static_cast<long long>(twips) * dpi;
    return static_cast<int>((scaled + (scaled < 0 ? -1LL : 1LL) * (twipsPerInch / 2)) /
                            twipsPerInch);
}

/// A length in twips of whole pixels at `dpi`, rounded to the nearest.
constexpr int toTwips(int pixels, int dpi) {
    const long long scaled = static_cast<long long>(pixels) * twipsPerInch;
    return static_cast<int>((scaled + (scaled < 0 ? -1LL : 1LL) * (dpi / 2)) / dpi);
}

}  // namespace velvox
