#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

namespace velvox {

/// Loads the newest rich-edit library of the system and returns its window class. The library stays
/// loaded. Throws RuntimeFailure (Platform).
const wchar_t* richEditClass();

/// Replaces the selection by an RTF text.
void streamRichText(HWND control, std::string_view rtf);

/// Adds the control's own link format to the selection, or removes it.
void formatSelectionAsLink(HWND control, bool link);

void setSelection(HWND control, std::size_t begin, std::size_t end);

/// Destroys the caret if it belongs to `control`.
void destroyCaret(HWND control);

}  // namespace velvox
