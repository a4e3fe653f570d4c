#include "base/colour.h"

#include <algorithm>
#include <cmath>

namespace velvox {
namespace {

constexpr OleColour lastSystemColour = 30;

template <class Channel>
Rgb perChannel(Channel channel) {
    return rgb(channel(redOf), channel(greenOf), channel(blueOf));
}

double linear(int channel) {
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(Rgb colour) {
    return 0.2126 * linear(redOf(colour)) + 0.7152 * linear(greenOf(colour)) +
           0.0722 * linear(blueOf(colour));
}

}  // namespace

Rgb translate(OleColour colour, const SystemColours& table) {
    if ((colour & 0xFF000000U) == 0) return static_cast<Rgb>(colour);
    if ((colour & 0xFF000000U) == 0x02000000U) return static_cast<Rgb>(colour & 0x00FFFFFFU);
    const OleColour index = colour & 0x7FFFFFFFU;
    if ((colour & 0x80000000U) == 0 || index > lastSystemColour) return -1;
    return table.colour(static_cast<int>(index));
}

Rgb average(Rgb a, Rgb b) {
    return perChannel([&](auto of) {
        const int sum = of(a) + of(b);
        const int half = sum / 2;
        return sum % 2 == 0 ? half : half + half % 2;
    });
}

Rgb shift(Rgb colour, int amount) {
    return perChannel([&](auto of) { return std::clamp(of(colour) + amount, 0, 255); });
}

Rgb lighten(Rgb colour, int amount) {
    return perChannel(
        [&](auto of) { return std::min(of(colour) * (255 - amount) / 255 + amount, 255); });
}

Rgb blend(Rgb from, Rgb to, int step, int steps) {
    if (steps <= 1) return from;
    return perChannel([&](auto of) { return of(from) + (of(to) - of(from)) * step / (steps - 1); });
}

double contrast(Rgb a, Rgb b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Rgb legible(Rgb text, Rgb background, double ratio) {
    constexpr Rgb black = rgb(0, 0, 0);
    constexpr Rgb white = rgb(255, 255, 255);
    constexpr int steps = 33;
    const Rgb end = contrast(white, background) > contrast(black, background) ? white : black;
    for (int step = 0; step < steps; ++step) {
        const Rgb colour = blend(text, end, step, steps);
        if (contrast(colour, background) >= ratio) return colour;
    }
    return end;
}

}  // namespace velvox
