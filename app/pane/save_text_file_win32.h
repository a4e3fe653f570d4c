#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Asks for a path with the system's dialog, then writes a text file. An existing file is replaced
/// only after the new file is complete. Throws RuntimeFailure (Platform) with a readable reason.
void saveTextFile(HWND owner, const wchar_t* suggestedName, std::string_view text);

/// Writes the file in the same way, but to `path` without a dialog.
void writeTextFile(const wchar_t* path, std::string_view text);

}  // namespace velvox
