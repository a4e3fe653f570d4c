#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Asks for a path with the system's dialog, then writes a text file. An existing file is replaced
/// only once the new one is complete. Throws RuntimeFailure (Platform) with a plain reason.
void saveTextFile(HWND owner, const wchar_t* suggestedName, std::string_view text);

/// Writes the file without a dialog.
void writeTextFile(const wchar_t* path, std::string_view text);

}  // namespace velvox
