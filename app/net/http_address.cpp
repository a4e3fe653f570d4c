#include "app/net/http_address.h"

#include <algorithm>
#include <charconv>

#include "base/join.h"
#include "base/runtime_failure.h"
#include "base/web_address.h"

namespace velvox {
namespace {

RuntimeFailure refused(std::string_view reason) {
    return {Fault::Transfer, std::string(reason)};
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}

bool canBeHost(std::string_view host) {
    return !host.empty() && host.size() <= 255 && std::all_of(host.begin(), host.end(), [](char c) {
        return isLetter(c) || isDigit(c) || c == '-' || c == '.' || c == '_' ||
               static_cast<unsigned char>(c) > 127;
    });
}

std::string_view withoutFragment(std::string_view text) {
    return text.substr(0, text.find('#'));
}

/// A path that starts with "/" without its "." and ".." steps, as a browser asks for it.
std::string withoutDotSteps(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        path.remove_prefix(1);
        const std::string_view step = path.substr(0, path.find('/'));
        path.remove_prefix(step.size());
        if (step == "..") result.resize(result.empty() ? 0 : result.rfind('/'));
        if (step != "." && step != "..")
            result.append("/").append(step);
        else if (path.empty())
            result.append("/");
    }
    return result;
}

}  // namespace

std::string schemeOf(std::string_view address) {
    const auto colon = address.find(':');
    if (colon == address.npos || colon == 0 || !isLetter(address[0])) return {};
    const std::string_view name = address.substr(0, colon);
    const bool isName = std::all_of(name.begin(), name.end(), [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    });
    if (!isName) return {};
    const std::string_view rest = address.substr(colon + 1);
    const auto digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    const bool isPort = digits > 0 && (digits == rest.size() || rest[digits] == '/' ||
                                       rest[digits] == '?' || rest[digits] == '#');
    if (isPort) return {};
    std::string scheme(name);
    std::transform(scheme.begin(), scheme.end(), scheme.begin(), lower);
    return scheme;
}

HttpAddress parseHttpAddress(std::string_view address) {
    HttpAddress result;
    const std::string scheme = schemeOf(address);
    if (!scheme.empty()) {
        if (scheme != "http" && scheme != "https")
            throw refused("Only http and https addresses can be fetched");
        address.remove_prefix(scheme.size() + 1);
        if (!address.starts_with("//")) throw refused("The address names no host");
        address.remove_prefix(2);
        result.secure = scheme == "https";
    }
    address = withoutFragment(address);
    const auto hostEnd = std::min(address.find_first_of("/?"), address.size());
    std::string_view host = address.substr(0, hostEnd);
    const std::string_view target = address.substr(hostEnd);

    result.port = result.secure ? 443 : 80;
    if (const auto colon = host.rfind(':'); colon != host.npos) {
        const std::string_view digits = host.substr(colon + 1);
        host = host.substr(0, colon);
        unsigned port = 0;
        const char* end = digits.data() + digits.size();
        const auto [stop, error] = std::from_chars(digits.data(), end, port);
        if (!digits.empty()) {
            if (error != std::errc{} || stop != end || port == 0 || port > 65535)
                throw refused("The address has a port that cannot be one");
            result.port = static_cast<std::uint16_t>(port);
        }
    }
    if (!canBeHost(host)) throw refused("The address has no host name that can be one");
    result.host = host;
    result.target = target.starts_with('/') ? std::string(target) : join({"/", target});
    return result;
}

HttpAddress resolveLocation(const HttpAddress& from, std::string_view location) {
    if (!schemeOf(location).empty()) return parseHttpAddress(location);
    if (location.starts_with("//"))
        return parseHttpAddress(join({from.secure ? "https:" : "http:", location}));
    location = withoutFragment(location);
    HttpAddress result = from;
    if (location.starts_with('/')) {
        result.target = location;
    } else if (!location.empty()) {
        const std::string_view path =
            std::string_view(from.target).substr(0, from.target.find('?'));
        const auto pathEnd = std::min(location.find('?'), location.size());
        const std::string_view query = location.substr(pathEnd);
        if (pathEnd == 0)
            result.target = join({path, query});
        else
            result.target = join({withoutDotSteps(join({path.substr(0, path.rfind('/') + 1),
                                                        location.substr(0, pathEnd)})),
                                  query});
    }
    return result;
}

std::string escapeForRequestLine(std::string_view target) {
    return percentEncode(target, " ");
}

}  // namespace velvox
