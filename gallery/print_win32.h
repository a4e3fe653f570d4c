#pragma once

#include <windows.h>

#include "gallery/picture_file.h"

namespace velvox {

/// The client area of a window and of all visible children, painted as they paint themselves.
/// The window need not be on the screen.
PictureData pictureOf(HWND window);

}  // namespace velvox
