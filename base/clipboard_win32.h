#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// Puts text on the clipboard, with `owner` as the clipboard's owner. Throws RuntimeFailure
/// (Platform).
void copyToClipboard(HWND owner, std::string_view text);

/// The clipboard's text; nullopt if it has no text or another program keeps it open.
std::optional<std::string> clipboardText(HWND owner);

/// Reads UTF-16 from global memory up to a zero or the end of the memory. Returns an empty text if
/// `memory` is null.
std::string textOfMemory(HGLOBAL memory);

}  // namespace velvox
