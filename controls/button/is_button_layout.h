// Layout of a push button's face. Lengths are in pixels; `width` and `height` are the face's size.
#pragma once

#include <array>
#include <variant>

#include "base/geometry.h"
#include "controls/button/is_button.h"

namespace velvox {

/// Minimum width and height of a button, in twips.
inline constexpr int minButtonTwips = 300;

/// DT_CENTER + DT_WORDBREAK, used until the first resize.
inline constexpr unsigned firstCaptionFlags = 17;

/// DT_ flags for a caption alignment of 0 to 4; 0 for any other number.
unsigned captionFlagsOf(int captionAlign);

/// The caption keeps four pixels from each edge.
Rect captionRect(int width, int height);

/// Distance of the icon from the edge it is aligned to.
int iconMargin(int style);

/// Top left corner of the icon; (0, 0) for an alignment outside 0 to 4.
Point iconPlace(int iconAlign, int width, int height, int size, int margin);

/// Shapes of a button's window region. Polygons have the fill mode ALTERNATE.
struct PlainOutline {};
struct RoundOutline {
    int ellipse = 0;  ///< width and height of the corner's ellipse
};
using PolygonOutline = std::array<Point, 8>;
using ButtonOutline = std::variant<PlainOutline, RoundOutline, PolygonOutline>;
ButtonOutline outlineOf(int style, int width, int height);

/// Diameter of the pill style's round ends. It has a maximum, because larger half circles look
/// bloated.
int pillDiameter(int width, int height);

}  // namespace velvox
