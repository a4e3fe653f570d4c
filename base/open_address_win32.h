#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Opens a web address in the user's browser through the shell's open verb. The address is
/// percent-encoded so that it stays one argument of the browser's command line. Does nothing if
/// `address` is not a web address.
void openAddress(HWND owner, std::string_view address);

}  // namespace velvox
