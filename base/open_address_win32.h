#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// Opens a web address in the user's browser through the shell's open verb. The address is
/// percent-encoded so that it stays one argument of the browser's command line. Does nothing if
/// `address` is not a web address. Throws RuntimeFailure (Platform) if no browser can be started
/// for an address that is too long for the shell.
void openAddress(HWND owner, std::string_view address);

}  // namespace velvox
