#include "app/net/http_address.h"

#include <algorithm>

#include "app/net/url_host.h"
#include "base/ascii.h"
#include "base/join.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

RuntimeFailure refused(std::string_view reason) {
    return {Fault::Transfer, std::string(reason)};
}

bool canBeHost(std::string_view host) {
    return !host.empty() && host.size() <= maxHostLength &&
           std::all_of(host.begin(), host.end(), [](char c) {
               return ascii::isLetter(c) || ascii::isDigit(c) || c == '-' || c == '.' || c == '_' ||
                      static_cast<unsigned char>(c) > 127;
           });
}

/// The scheme of an address that a user has typed, or empty. In "host:80", the text before the
/// colon is a host.
std::string writtenScheme(std::string_view address) {
    std::string scheme = urlScheme(address);
    if (scheme.empty()) return scheme;
    const std::string_view rest = address.substr(scheme.size() + 1);
    const auto digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    const bool isPort = digits > 0 && (digits == rest.size() || rest[digits] == '/' ||
                                       rest[digits] == '?' || rest[digits] == '#');
    return isPort ? std::string() : scheme;
}

}  // namespace

HttpAddress parseHttpAddress(std::string_view address) {
    if (address.size() > maxAddressBytes) throw refused("The address is too long");
    HttpAddress result;
    const std::string scheme = writtenScheme(address);
    if (!scheme.empty()) {
        if (scheme != "http" && scheme != "https")
            throw refused("Only http and https addresses can be fetched");
        address.remove_prefix(scheme.size() + 1);
        if (!address.starts_with("//")) throw refused("The address names no host");
        address.remove_prefix(2);
        result.secure = scheme == "https";
    }
    const auto fragment = std::min(address.find('#'), address.size());
    result.fragment = address.substr(fragment);
    address = address.substr(0, fragment);
    const auto hostEnd = std::min(address.find_first_of("/?"), address.size());
    const std::string_view target = address.substr(hostEnd);
    result.target = target.starts_with('/') ? std::string(target) : join({"/", target});

    const HostAndPort place = splitPort(address.substr(0, hostEnd));
    result.port = place.port.value_or(defaultPort(result.secure));
    if (result.port == 0) throw refused("The address has a port that cannot be one");
    if (place.host.starts_with('['))
        result.host = canonicalHost(place.host);
    else if (canBeHost(place.host))
        result.host = place.host;
    else
        throw refused("The address has no host name that can be one");
    return result;
}

std::string toString(const HttpAddress& address) {
    std::string port;
    if (address.port != defaultPort(address.secure)) port = ":" + std::to_string(address.port);
    return join({address.secure ? "https://" : "http://", address.host, port, address.target,
                 address.fragment});
}

std::string escapeForRequestLine(std::string_view target) {
    return percentEncode(target, " ");
}

std::string urlScheme(std::string_view address) {
    const auto colon = address.find(':');
    if (colon == address.npos || colon == 0 || !ascii::isLetter(address[0])) return {};
    const std::string_view name = address.substr(0, colon);
    const bool isName = std::all_of(name.begin(), name.end(), [](char c) {
        return ascii::isLetter(c) || ascii::isDigit(c) || c == '+' || c == '-' || c == '.';
    });
    if (!isName) return {};
    return ascii::lowerCase(name);
}

}  // namespace velvox
