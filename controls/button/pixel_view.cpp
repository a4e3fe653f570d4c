#include "controls/button/pixel_view.h"

#include <algorithm>

namespace velvox {

void PixelView::line(int x1, int y1, int x2, int y2, Rgb colour) const {
    if (x1 == x2 && y1 == y2) return;
    // The end point, which is not drawn, may be left of the start point or above it.
    if (y1 == y2)
        fill({std::min(x1, x2 + 1), y1, std::max(x2, x1 + 1), y1 + 1}, colour);
    else
        fill({x1, std::min(y1, y2 + 1), x1 + 1, std::max(y2, y1 + 1)}, colour);
}

void PixelView::frame(int left, int top, int right, int bottom, Rgb colour) const {
    line(left, top, right, top, colour);
    line(right, top, right, bottom, colour);
    line(right, bottom, left, bottom, colour);
    line(left, bottom, left, top, colour);
}

void PixelView::fill(const Rect& area, Rgb colour) const {
    const int left = std::max(area.left, 0);
    const int right = std::min(area.right, width_);
    if (left >= right) return;
    const std::uint32_t value = swapped(static_cast<std::uint32_t>(colour));
    for (int y = std::max(area.top, 0); y < std::min(area.bottom, height_); ++y)
        std::fill_n(pixels_ + offset(left, y), right - left, value);
}

void PixelView::gradient(const Rect& area, Rgb top, Rgb bottom) const {
    const int rows = area.bottom - area.top;
    for (int row = 0; row < rows; ++row)
        fill({area.left, area.top + row, area.right, area.top + row + 1},
             blend(top, bottom, row, rows));
}

}  // namespace velvox
