#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velvox {

/// Maximum bytes of an address. No server accepts a longer one, an address is copied several times,
/// and a text field takes many seconds for megabytes of text.
inline constexpr std::size_t maxAddressBytes = 65'536;

/// Whether an address may be opened in the user's browser or loaded: it starts with http:// or
/// https:// in any letter case, is longer than that, and contains no control character.
bool isWebAddress(std::string_view address);

/// `text` with control characters, bytes above 126 and the bytes listed in `unsafe` replaced by
/// %XX.
std::string percentEncode(std::string_view text, std::string_view unsafe);

/// `address` percent-encoded so that it stays one argument of a command line. A "%" is encoded too
/// if it does not encode a byte, because shells replace %NAME% by the environment variable NAME.
std::string escapeForShell(std::string_view address);

}  // namespace velvox
