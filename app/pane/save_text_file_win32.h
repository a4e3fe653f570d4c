#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Asks by the system's dialog where to, then writes a text file. A file that is there is replaced
/// only once the new one is complete. Throws RuntimeFailure (Platform) with a plain reason.
void saveTextFile(HWND owner, const wchar_t* suggestedName, std::string_view text);

/// The second half of it.
void writeTextFile(const wchar_t* path, std::string_view text);

}  // namespace velvox
