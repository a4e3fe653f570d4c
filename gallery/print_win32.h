#pragma once

#include <windows.h>

#include <string>

namespace velvox {

/// Writes a BMP file of the client area of a window and of all visible children, painted as they
/// paint themselves. The window need not be on the screen. Throws RuntimeFailure (Platform).
void writePicture(HWND window, const std::string& path);

}  // namespace velvox
