// http_address: the input is an address. location: the sections are an address and the Location
// header of its reply.
#include <algorithm>
#include <optional>

#include "app/net/http_address.h"
#include "app/net/resolve_location.h"
#include "app/net/url_host.h"
#include "base/ascii.h"
#include "base/runtime_failure.h"
#include "base/web_address.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

/// The result of `make`, or nothing if it throws. It may only throw Fault::Transfer.
template <class Make>
auto unlessRefused(Make make) -> std::optional<decltype(make())> {
    try {
        return make();
    } catch (const RuntimeFailure& failure) {
        require(failure.fault() == Fault::Transfer, "another fault");
        return std::nullopt;
    }
}

std::optional<HttpAddress> parsed(std::string_view address) {
    return unlessRefused([&] { return parseHttpAddress(address); });
}

void checkParts(const HttpAddress& address) {
    require(!address.host.empty() && address.host.find_first_of("/?#@\\ \r\n") == std::string::npos,
            "a host that is none");
    require(address.target.starts_with('/') && address.target.find('#') == std::string::npos,
            "a target that is none");
    require(address.fragment.empty() || address.fragment.starts_with('#'),
            "a fragment that is none");
}

bool isPlain(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c < '\x7F'; });
}

}  // namespace

void http_address(std::string_view input) {
    const auto address = parsed(input);
    if (!address) return;
    checkParts(*address);
    require(address->port != 0, "port 0");
    require(parsed(toString(*address)) == address, "the parts give another address");
    const std::string line = escapeForRequestLine(address->target);
    require(isPlain(line), "a byte that breaks the request line");
    require(escapeForRequestLine(line) == line, "an escape is escaped");
}

void location(std::string_view input) {
    const std::vector<std::string> parts = sections(input);
    const auto base = parsed(parts[0]);
    if (!base || parts.size() < 2) return;
    const auto at = unlessRefused([&] { return resolveLocation(*base, parts[1]); });
    if (!at) return;
    checkParts(*at);
    require(at->host == ascii::lowerCase(at->host), "a host in upper case");
    require(
        isPlain(at->target + at->fragment) && at->target.find_first_of("\"<>") == std::string::npos,
        "a byte that browsers escape");
    const std::string path = at->target.substr(0, at->target.find('?')) + '/';
    for (const char* step : {"/./", "/../", "/%2e/", "/%2E%2e/"})
        require(path.find(step) == std::string::npos, "a dot step");

    const auto canonical = unlessRefused([&] { return canonicalHost(at->host); });
    if (canonical != at->host) {
        require(at->host == ascii::lowerCase(base->host), "a host that nothing names");
        return;
    }
    const std::string whole = toString(*at);
    require(isWebAddress(whole), "no web address");
    for (const HttpAddress& from : {*base, HttpAddress{true, "other", 1, "/x/y?z", "#f"}})
        require(resolveLocation(from, whole) == *at, "what is resolved resolves to something else");
}

}  // namespace velvox::fuzz
