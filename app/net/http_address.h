// Addresses of pages: parsing, composing, and the form sent on the request line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velvox {

constexpr std::uint16_t defaultPort(bool secure) {
    return secure ? 443 : 80;
}

struct HttpAddress {
    bool secure = false;
    std::string host;  ///< an IPv6 address is in brackets
    std::uint16_t port = 80;
    std::string target;         ///< path and query, as written; at least "/"
    std::string fragment = {};  ///< with its "#"; never part of a request

    bool operator==(const HttpAddress&) const = default;
};

/// Parses an address that the user or a page has written. One without a scheme is taken as
/// http. Target and fragment are kept byte for byte. Throws RuntimeFailure (Transfer) with a plain
/// reason for any scheme but http and https and for a host or port that cannot be one.
HttpAddress parseHttpAddress(std::string_view address);

/// The whole address; a port that is the scheme's default is left out.
std::string toString(const HttpAddress& address);

/// The bytes that would break a request line (blanks, controls, bytes above 126) as %XX; every
/// other byte, "%" and the backslash included, as it is.
std::string escapeForRequestLine(std::string_view target);

/// The scheme of an address in lower case without its colon; empty when it has none.
std::string urlScheme(std::string_view address);

}  // namespace velvox
