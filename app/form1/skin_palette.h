// Every colour of the window that the system does not choose. tools/make-art reads this table too,
// so that pictures and drawn pieces match. It needs one colour per line, with red, green and blue
// in decimal.
#pragma once

#include "base/colour.h"

namespace velvox::palette {

// Program icon, and its symbol in the title bar.
inline constexpr Rgb tileTop = rgb(63, 135, 153);
inline constexpr Rgb tileBottom = rgb(34, 86, 106);
inline constexpr Rgb markLight = rgb(255, 255, 255);
inline constexpr Rgb markShade = rgb(201, 223, 229);
inline constexpr Rgb markAccent = rgb(240, 166, 60);

// Title bar. titleEdge is also the colour of the frame around the window.
inline constexpr Rgb titleEdge = rgb(27, 68, 83);
inline constexpr Rgb titleShine = rgb(103, 158, 174);
inline constexpr Rgb titleTop = rgb(60, 125, 143);
inline constexpr Rgb titleBottom = rgb(36, 88, 107);
inline constexpr Rgb inactiveOverlay = rgb(104, 115, 120);

// Surface colours.
inline constexpr Rgb form = rgb(242, 241, 238);
inline constexpr Rgb area = rgb(252, 251, 250);
inline constexpr Rgb areaEdge = rgb(186, 190, 188);
inline constexpr Rgb strip = rgb(231, 231, 227);
inline constexpr Rgb lineDark = rgb(206, 205, 200);
inline constexpr Rgb lineLight = rgb(255, 255, 255);
inline constexpr Rgb button = rgb(224, 224, 224);
inline constexpr Rgb box = rgb(255, 255, 255);

// Text colours.
inline constexpr Rgb text = rgb(30, 36, 40);
inline constexpr Rgb quietText = rgb(82, 94, 101);
inline constexpr Rgb titleText = rgb(255, 255, 255);
inline constexpr Rgb linkText = rgb(0, 0, 255);

}  // namespace velvox::palette
