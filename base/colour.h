// Colour arithmetic for owner-drawn controls and for legible text. The low byte of an RGB value is
// red.
#pragma once

#include <cstdint>

namespace velvox {

/// A stored colour: an RGB value 0x00BBGGRR, or the number of a system colour with the top bit set.
using OleColour = std::uint32_t;

/// An RGB value 0x00BBGGRR, or -1 for a colour that `translate` could not convert.
using Rgb = std::int32_t;

constexpr Rgb rgb(int red, int green, int blue) {
    return red | (green << 8) | (blue << 16);
}
constexpr int redOf(Rgb c) {
    return c & 0xFF;
}
constexpr int greenOf(Rgb c) {
    return (c >> 8) & 0xFF;
}
constexpr int blueOf(Rgb c) {
    return (c >> 16) & 0xFF;
}

/// Numbers of system colours, as GetSysColor takes them.
enum SystemColour : int {
    WindowColour = 5,
    WindowTextColour = 8,
    HighlightColour = 13,
    ButtonFaceColour = 15,
    ButtonShadowColour = 16,
    GrayTextColour = 17,
    ButtonTextColour = 18,
    InfoTextColour = 23,
    InfoBackColour = 24,
};

constexpr OleColour systemColour(int index) {
    return 0x80000000U | static_cast<OleColour>(index);
}

/// Looks up the current system colours by number.
class SystemColours {
 public:
    virtual ~SystemColours() = default;
    virtual Rgb colour(int index) const = 0;
};

/// Converts a stored colour to RGB; -1 if it is neither an RGB value nor a known system colour.
Rgb translate(OleColour colour, const SystemColours& table);

/// Mean of each channel, rounded to the nearest integer, with halves rounded to even.
Rgb average(Rgb a, Rgb b);

/// Adds `amount` to each channel and clamps it to 0..255.
Rgb shift(Rgb colour, int amount);

/// Moves each channel c towards white: c * (255 - amount) / 255 + amount, the division truncated,
/// clamped to 255. `amount` runs from 0 to 255.
Rgb lighten(Rgb colour, int amount);

/// Colour of line `step` (from 0) in a gradient of `steps` lines, each channel interpolated
/// linearly.
Rgb blend(Rgb from, Rgb to, int step, int steps);

/// Contrast ratio of two colours, from 1 to 21, as the Web Content Accessibility Guidelines define
/// it.
double contrast(Rgb a, Rgb b);

/// Minimum contrast of text to its background: `textContrast` normally, `highTextContrast` if the
/// user has turned on high contrast.
inline constexpr double textContrast = 4.5;
inline constexpr double highTextContrast = 7;

/// Returns `text` if its contrast to `background` is at least `ratio`. Otherwise shifts it towards
/// black or white, whichever contrasts more, until the contrast suffices. Returns black or white if
/// no shade between does.
Rgb legible(Rgb text, Rgb background, double ratio);

}  // namespace velvox
