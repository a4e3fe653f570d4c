// Parses hosts and ports of web addresses as the URL Standard prescribes.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// Maximum length of a host in bytes that WinHTTP accepts.
constexpr std::size_t maxHostLength = 255;

struct HostAndPort {
    std::string_view host;              ///< IPv6 addresses include their brackets
    std::optional<std::uint16_t> port;  ///< nullopt if there is no port or only its colon
};

/// Splits "host:port". Throws RuntimeFailure (Transfer) unless the port is a number up to 65535.
HostAndPort splitPort(std::string_view text);

/// The host in the canonical form of browsers: in lower case, %XX decoded, numbers as a dotted IPv4
/// address, an IPv6 address compressed and in brackets. Throws RuntimeFailure (Transfer) for an
/// invalid host and for a non-ASCII one. Servers send non-ASCII names in their ASCII form ("xn--"),
/// which is accepted.
std::string canonicalHost(std::string_view host);

}  // namespace velvox
