// Pixels of a picture in memory, and drawing operations that need no system calls.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/colour.h"
#include "controls/button/is_button_layout.h"

namespace velvox {

/// Rows of pixels 0x00RRGGBB, the topmost row first. Coordinates are in pixels; drawing outside the
/// picture is clipped. A view does not own the pixels, and its copies share them.
class PixelView {
 public:
    PixelView(std::uint32_t* pixels, int width, int height) noexcept
        : pixels_(pixels), width_(width), height_(height) {}

    int width() const noexcept { return width_; }
    int height() const noexcept { return height_; }
    Rect rect() const noexcept { return {0, 0, width_, height_}; }

    /// Colour of a pixel; -1 outside the picture.
    Rgb at(int x, int y) const {
        return holds(x, y) ? static_cast<Rgb>(swapped(pixels_[offset(x, y)])) : -1;
    }
    void pixel(int x, int y, Rgb colour) const {
        if (holds(x, y)) pixels_[offset(x, y)] = swapped(static_cast<std::uint32_t>(colour));
    }

    /// Draws a horizontal or vertical line. The end point (x2, y2) is not drawn.
    void line(int x1, int y1, int x2, int y2, Rgb colour) const;

    /// Draws the four sides of a rectangle; `right` and `bottom` are inclusive.
    void frame(int left, int top, int right, int bottom, Rgb colour) const;

    /// Fills an area; its right column and bottom row are exclusive.
    void fill(const Rect& area, Rgb colour) const;

    /// Fills an area with a vertical gradient between the colours `top` and `bottom`.
    void gradient(const Rect& area, Rgb top, Rgb bottom) const;

 private:
    bool holds(int x, int y) const noexcept {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }
    std::size_t offset(int x, int y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }
    static constexpr std::uint32_t swapped(std::uint32_t colour) {
        return ((colour & 0xFF) << 16) | (colour & 0xFF00) | ((colour >> 16) & 0xFF);
    }

    std::uint32_t* pixels_;
    int width_;
    int height_;
};

}  // namespace velvox
