// Hosts and ports of web addresses, as the URL Standard reads them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// The longest host, in bytes, that the system's transfers take.
constexpr std::size_t maxHostLength = 255;

struct HostAndPort {
    std::string_view host;              ///< an IPv6 address with its brackets
    std::optional<std::uint16_t> port;  ///< nothing when none or only the colon is written
};

/// Splits "host:port". Throws RuntimeFailure (Transfer) for a port that is no number up to 65535.
HostAndPort splitPort(std::string_view text);

/// A host in the canonical form of browsers: in lower case, %XX decoded, numbers as a dotted
/// IPv4 address, an IPv6 address compressed and in brackets. Throws RuntimeFailure (Transfer) for
/// what can be no host and for one beyond ASCII: such names reach a Location header in their ASCII
/// form ("xn--"), which passes as it is.
std::string canonicalHost(std::string_view host);

}  // namespace velvox
