#include "app/net/resolve_location.h"

#include <algorithm>
#include <string>

#include "app/net/url_host.h"
#include "base/ascii.h"
#include "base/runtime_failure.h"
#include "base/web_address.h"

namespace velvox {
namespace {

// Bytes that browsers percent-encode, besides control characters and bytes above 126.
constexpr std::string_view unsafeInPath = " \"#<>?^`{}";
constexpr std::string_view unsafeInQuery = " \"#<>'";
constexpr std::string_view unsafeInFragment = " \"<>`";

constexpr std::string_view slashes = "/\\";

RuntimeFailure refused(const char* reason) {
    return {Fault::Transfer, reason};
}

bool isSlash(char c) {
    return slashes.find(c) != slashes.npos;
}

/// Removes blanks and control characters from both ends, and tabs and line ends everywhere.
std::string cleaned(std::string_view location) {
    const auto isEdge = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!location.empty() && isEdge(location.front())) location.remove_prefix(1);
    while (!location.empty() && isEdge(location.back())) location.remove_suffix(1);
    std::string result(location);
    std::erase_if(result, [](char c) { return c == '\t' || c == '\r' || c == '\n'; });
    return result;
}

/// Cuts `text` before the first `delimiter`. Returns the rest, which starts with `delimiter`.
std::string_view takeFrom(std::string_view& text, char delimiter) {
    const auto at = std::min(text.find(delimiter), text.size());
    const std::string_view tail = text.substr(at);
    text = text.substr(0, at);
    return tail;
}

bool isStep(std::string_view step, std::initializer_list<std::string_view> spellings) {
    return std::any_of(spellings.begin(), spellings.end(), [&](std::string_view spelling) {
        return ascii::equalIgnoringCase(step, spelling);
    });
}

/// Appends `steps`, which come without their first slash, to `path` and resolves "." and "..".
/// `path` is empty or consists of steps that each start with a slash.
std::string continuePath(std::string path, std::string_view steps) {
    for (;;) {
        const auto end = std::min(steps.find_first_of(slashes), steps.size());
        const bool last = end == steps.size();
        const std::string_view step = steps.substr(0, end);
        if (isStep(step, {"..", ".%2e", "%2e.", "%2e%2e"})) {
            path.resize(path.empty() ? 0 : path.rfind('/'));
            if (last) path += '/';
        } else if (isStep(step, {".", "%2e"})) {
            if (last) path += '/';
        } else {
            path += '/';
            path += percentEncode(step, unsafeInPath);
        }
        if (last) return path;
        steps.remove_prefix(end + 1);
    }
}

void setAuthority(HttpAddress& address, std::string_view authority) {
    if (const auto at = authority.rfind('@'); at != authority.npos) {
        const std::string_view credentials = authority.substr(0, at);
        if (!credentials.empty() && credentials != ":")
            throw refused("The address has a user name or password in it");
        authority.remove_prefix(at + 1);
    }
    const HostAndPort parts = splitPort(authority);
    address.host = canonicalHost(parts.host);
    address.port = parts.port.value_or(defaultPort(address.secure));
}

/// Removes a scheme from the front of `rest`. Returns whether there was one.
bool takeScheme(std::string_view& rest, bool& secure) {
    const std::string scheme = urlScheme(rest);
    if (scheme.empty()) return false;
    if (scheme != "http" && scheme != "https")
        throw refused("Only http and https addresses can be fetched");
    secure = scheme == "https";
    rest.remove_prefix(scheme.size() + 1);
    return true;
}

}  // namespace

HttpAddress resolveLocation(const HttpAddress& base, std::string_view location) {
    const std::string text = cleaned(location);
    if (text.empty()) throw refused("The redirect does not say where it leads");
    std::string_view rest = text;
    const std::string_view fragment = takeFrom(rest, '#');
    std::string_view query = takeFrom(rest, '?');

    HttpAddress result = base;
    result.host = ascii::lowerCase(base.host);
    const bool otherScheme = takeScheme(rest, result.secure) && result.secure != base.secure;
    std::string_view basePath = base.target;
    const std::string_view baseQuery = takeFrom(basePath, '?');
    std::string path = continuePath({}, basePath.substr(1));
    const bool hasAuthority =
        otherScheme || (rest.size() > 1 && isSlash(rest[0]) && isSlash(rest[1]));
    if (hasAuthority) {
        rest.remove_prefix(std::min(rest.find_first_not_of(slashes), rest.size()));
        const auto end = std::min(rest.find_first_of(slashes), rest.size());
        setAuthority(result, rest.substr(0, end));
        rest.remove_prefix(end);
        path = continuePath({}, rest.substr(rest.empty() ? 0 : 1));
    } else if (rest.empty()) {
        if (query.empty()) query = baseQuery;
    } else if (isSlash(rest.front())) {
        path = continuePath({}, rest.substr(1));
    } else {
        path = continuePath(path.substr(0, path.rfind('/')), rest);
    }
    result.target = path + percentEncode(query, unsafeInQuery);
    result.fragment = percentEncode(fragment, unsafeInFragment);
    return result;
}

}  // namespace velvox
