// What the designed styles 7 to 10 have in common.
#pragma once

#include "controls/button/is_button_paint.h"

namespace velvox {

/// Parts of a colour over another, in 255ths; clamped.
Rgb mixed(Rgb under, Rgb over, int parts);

/// The colour of hover and focus: the highlight colour, or one of its hue and another lightness
/// where it is too close to the face to be seen.
Rgb accentOf(const FacePlan& plan);

}  // namespace velvox
