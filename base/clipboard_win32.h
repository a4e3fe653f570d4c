#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// Puts text on the clipboard, on behalf of a window. Throws RuntimeFailure (Platform).
void copyToClipboard(HWND owner, std::string_view text);

/// The clipboard's text. Nothing where it has none or another program holds it.
std::optional<std::string> clipboardText(HWND owner);

/// The text of global memory that holds UTF-16, up to a zero or its end; empty for no memory.
std::string textOfMemory(HGLOBAL memory);

}  // namespace velvox
