// Which addresses may be opened in the user's browser or followed, and percent-encoding.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// Whether an address may be opened or followed: it starts with http:// or https:// in any letter
/// case, something comes after that, and no byte of it is a control character.
bool isWebAddress(std::string_view address);

/// `text` with controls, bytes above 126 and every byte that is in `unsafe` as %XX.
std::string percentEncode(std::string_view text, std::string_view unsafe);

/// `address` percent-encoded so that it stays one argument of a command line. A "%" stays.
std::string escapeForShell(std::string_view address);

}  // namespace velvox
