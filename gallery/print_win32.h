#pragma once

#include <windows.h>

#include <string>

namespace velvox {

/// Writes the client area of a window, with all its visible children, to a BMP file. The window
/// need not be on the screen. Throws RuntimeFailure (Platform).
void writePicture(HWND window, const std::string& path);

}  // namespace velvox
