// The system's part in a push button's picture: edges, visual styles, text and icons, and the shape
// of its window.
#pragma once

#include "controls/button/is_button_face_win32.h"
#include "controls/button/is_button_paint.h"
#include "controls/button/is_button_theme_win32.h"

namespace velvox {

/// Draws the whole button. `window` is the one whose theme is used. False as the portable
/// `paintButton`.
bool paintButton(const ButtonFace& face, const ButtonLook& look, const ButtonScene& scene,
                 HWND window, ThemeLibrary& themes);

/// The shape of a style's window; its corners grow with the pixels of a thin line.
OwnedRegion buttonRegion(int style, int width, int height, int lineWidth = 1);

}  // namespace velvox
