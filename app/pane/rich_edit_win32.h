// Loading the system's rich edit control, and its common operations.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

namespace velvox {

/// The window class of the newest rich edit there is; loads its library, which stays loaded. Throws
/// RuntimeFailure (Platform).
const wchar_t* richEditClass();

/// Replaces the selection by an RTF text.
void streamRichText(HWND control, std::string_view rtf);

/// Gives the selection the control's own link format, or takes it away.
void formatSelectionAsLink(HWND control, bool link);

void setSelection(HWND control, std::size_t begin, std::size_t end);

/// Destroys the caret if it is the control's.
void destroyCaret(HWND control);

}  // namespace velvox
