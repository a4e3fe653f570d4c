// Colour functions shared by styles 7 to 10.
#pragma once

#include "controls/button/is_button_paint.h"

namespace velvox {

/// Blends `parts` 255ths of the colour `over` into `under`; `parts` is clamped.
Rgb mixed(Rgb under, Rgb over, int parts);

/// The colour that marks hover and focus: the highlight colour, made lighter or darker where it
/// would hardly differ from the face.
Rgb accentOf(const FacePlan& plan);

}  // namespace velvox
