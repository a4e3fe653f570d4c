// Addresses of pages: taking them apart, resolving redirects, and what goes on the request line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velvox {

struct HttpAddress {
    bool secure = false;
    std::string host;
    std::uint16_t port = 80;
    std::string target;  ///< path and query, as written; at least "/"

    bool operator==(const HttpAddress&) const = default;
};

/// Takes an address apart. One without a scheme is taken as http. The fragment is dropped, the
/// rest of the target is kept byte for byte. Throws RuntimeFailure (Transfer) with a plain reason
/// for any scheme but http and https and for a host or port that cannot be one.
HttpAddress parseHttpAddress(std::string_view address);

/// Where a Location header leads from `from`: an absolute address, or one relative to it.
HttpAddress resolveLocation(const HttpAddress& from, std::string_view location);

/// The bytes that would break a request line (blanks, controls, bytes above 126) as %XX; every
/// other byte, "%" and the backslash included, as it is.
std::string escapeForRequestLine(std::string_view target);

/// The scheme of an address in lower case without its colon; empty when it has none. "host:80" is
/// a host and a port.
std::string schemeOf(std::string_view address);

}  // namespace velvox
