// Draws a push button in the system's visual style.
#pragma once

#include <windows.h>

namespace velvox {

/// Tests replace this library by one that refuses to draw.
class ThemeLibrary {
 public:
    virtual ~ThemeLibrary() = default;

    /// Draws the push button of the theme class "Button" in `state`. Returns false when the theme
    /// cannot be opened for `window` or when drawing fails.
    virtual bool drawPushButton(HWND window, HDC dc, int state, const RECT& area) = 0;
};

/// Uses uxtheme.dll, which is loaded once. Without that library, drawPushButton() returns false.
ThemeLibrary& systemThemes();

}  // namespace velvox
