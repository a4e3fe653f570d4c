// Where things are on the face of a push button. Pixels; W and H are the inner size.
#pragma once

#include <array>
#include <variant>

#include "base/geometry.h"
#include "controls/button/is_button.h"

namespace velvox {

/// Neither side of a button is shorter, in twips.
inline constexpr int minButtonTwips = 300;

/// DT_CENTER + DT_WORDBREAK, in force until the first resize.
inline constexpr unsigned firstCaptionFlags = 17;

/// DT_ flags of a caption alignment 0 to 4; 0 for any other number.
unsigned captionFlagsOf(int captionAlign);

/// The caption keeps four pixels from each edge.
Rect captionRect(int width, int height);

/// Distance of the icon from the edge it is aligned to.
int iconMargin(int style);

/// Top left corner of the icon. An alignment above 4 puts it at (0, 0).
Point iconPlace(int iconAlign, int width, int height, int size, int margin);

/// Outlines that cut the window. Polygons have the fill mode ALTERNATE.
struct PlainOutline {};
struct RoundOutline {
    int ellipse = 0;  ///< width and height of the corner's ellipse
};
using PolygonOutline = std::array<Point, 8>;
using ButtonOutline = std::variant<PlainOutline, RoundOutline, PolygonOutline>;
ButtonOutline outlineOf(int style, int width, int height);

/// Diameter of the pill style's round ends: half circles, up to a size where they look bloated.
int pillDiameter(int width, int height);

}  // namespace velvox
