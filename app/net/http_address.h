// Parses and composes addresses of web pages, and escapes them for a request line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/web_address.h"

namespace velvox {

constexpr std::uint16_t defaultPort(bool secure) {
    return secure ? 443 : 80;
}

struct HttpAddress {
    bool secure = false;
    std::string host;  ///< IPv6 addresses are in brackets
    std::uint16_t port = 80;
    std::string target;         ///< path and query as written; at least "/"
    std::string fragment = {};  ///< starts with "#" unless empty; never part of a request

    bool operator==(const HttpAddress&) const = default;
};

/// Parses an address that the user has typed or that a page contains. An address without a scheme
/// is read as http. Target and fragment are kept byte for byte. Throws RuntimeFailure (Transfer)
/// with a readable reason for other schemes than http and https, for an invalid host or port, and
/// for an address of more than maxAddressBytes.
HttpAddress parseHttpAddress(std::string_view address);

/// The whole address, without the port if it is the scheme's default.
std::string toString(const HttpAddress& address);

/// `target` with the bytes that would break a request line (blanks, control characters, bytes above
/// 126) as %XX. All other bytes stay as they are, "%" and the backslash included.
std::string escapeForRequestLine(std::string_view target);

/// The scheme of an address in lower case, without its colon; empty if there is none.
std::string urlScheme(std::string_view address);

}  // namespace velvox
