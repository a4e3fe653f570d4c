// Colour arithmetic of the owner-drawn controls and of legible text. RGB values keep red in the low
// byte.
#pragma once

#include <cstdint>

namespace velvox {

/// An RGB value 0x00BBGGRR, or, with the top bit set, the number of a system colour.
using OleColour = std::uint32_t;

/// A plain 0x00BBGGRR value; -1 where a translation failed.
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

/// The system's numbers of the colours that the controls use.
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

/// The system's current colour table.
class SystemColours {
 public:
    virtual ~SystemColours() = default;
    virtual Rgb colour(int index) const = 0;
};

/// Turns an OLE colour into RGB; -1 for a number that is neither RGB nor a known system colour.
Rgb translate(OleColour colour, const SystemColours& table);

/// Mean of each channel, rounded to the nearest whole number and halves to even.
Rgb average(Rgb a, Rgb b);

/// Adds `amount` to each channel and clamps it to 0..255.
Rgb shift(Rgb colour, int amount);

/// Moves each channel c towards white: c * (255 - amount) / 255 + amount, the division truncated,
/// clamped to 255. `amount` runs from 0 to 255.
Rgb lighten(Rgb colour, int amount);

/// Colour of line `step` of `steps` between two colours, each channel interpolated linearly.
Rgb blend(Rgb from, Rgb to, int step, int steps);

/// Contrast ratio of two colours, from 1 to 21, as the Web Content Accessibility Guidelines define
/// it.
double contrast(Rgb a, Rgb b);

/// Least contrast of text to its background: usually, and where the user asked for high contrast.
inline constexpr double textContrast = 4.5;
inline constexpr double highTextContrast = 7;

/// `text`, or the colour next to it on the way to black or white that has at least the contrast
/// `ratio` to `background`. Black or white itself where none has.
Rgb legible(Rgb text, Rgb background, double ratio);

}  // namespace velvox
