// The system's visual styles, as far as a push button needs them.
#pragma once

#include <windows.h>

namespace velvox {

/// Tests refuse the themes with a library of their own.
class ThemeLibrary {
 public:
    virtual ~ThemeLibrary() = default;

    /// True only when the theme of the class "Button" opened for `window` and the drawing of its
    /// push button in `state` succeeded.
    virtual bool drawPushButton(HWND window, HDC dc, int state, const RECT& area) = 0;
};

/// The system's library, looked up once; a system without one refuses.
ThemeLibrary& systemThemes();

}  // namespace velvox
