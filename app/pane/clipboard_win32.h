#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Puts text on the clipboard, on behalf of a window. Throws RuntimeFailure (Platform).
void copyToClipboard(HWND owner, std::string_view text);

}  // namespace velvox
