// The parts of a push button's picture that the system draws (edges, visual styles, text, icons),
// and the region of the button's window.
#pragma once

#include "controls/button/is_button_face_win32.h"
#include "controls/button/is_button_paint.h"
#include "controls/button/is_button_theme_win32.h"

namespace velvox {

/// Draws the whole button in the theme of `window`. Returns what the portable `paintButton`
/// returns.
bool paintButton(const ButtonFace& face, const ButtonLook& look, const ButtonScene& scene,
                 HWND window, ThemeLibrary& themes);

/// The window region of a style. Its corners scale with `lineWidth`, a thin line's width in pixels.
OwnedRegion buttonRegion(int style, int width, int height, int lineWidth = 1);

}  // namespace velvox
