#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Opens a web address in the user's browser by the shell's open verb, percent-encoded so that it
/// stays one argument of the browser's command line. Does nothing for any other address.
void openAddress(HWND owner, std::string_view address);

}  // namespace velvox
