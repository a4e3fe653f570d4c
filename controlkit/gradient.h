// Computes the corners of a gradient for the drawing surface (clsVirtualDC).
#pragma once

#include <array>
#include <cstdint>

#include "base/colour.h"

namespace velvox {

/// A corner of a gradient with 16-bit colour components, as in the system's TRIVERTEX.
struct GradientVertex {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;
    std::uint16_t alpha = 0;

    bool operator==(const GradientVertex&) const = default;
};

constexpr GradientVertex gradientVertex(int x, int y, OleColour colour) {
    const auto component = [](int eightBits) {
        return static_cast<std::uint16_t>(eightBits * 256);
    };
    const auto plain = static_cast<Rgb>(colour & 0x00FFFFFFU);
    return {x, y, component(redOf(plain)), component(greenOf(plain)), component(blueOf(plain)), 0};
}

/// The two corners of a gradient from colour1 at (x, y) to colour2 at (x + width, y + height).
constexpr std::array<GradientVertex, 2> gradientVertices(OleColour colour1, OleColour colour2,
                                                         int x, int y, int width, int height) {
    return {gradientVertex(x, y, colour1), gradientVertex(x + width, y + height, colour2)};
}

/// The direction of a gradient from left to right; any other number means top to bottom.
inline constexpr int leftToRight = 1;

}  // namespace velvox
