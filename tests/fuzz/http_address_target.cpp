// Addresses and redirects. The sections are an address and the Location of its reply.
#include <optional>

#include "app/net/http_address.h"
#include "app/net/redirects.h"
#include "base/join.h"
#include "base/runtime_failure.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

void checkParts(const HttpAddress& address) {
    require(
        !address.host.empty() && address.host.find_first_of("/?#:@\\ \r\n") == std::string::npos,
        "a host that is none");
    require(address.port != 0, "port 0");
    require(address.target.starts_with('/') && address.target.find('#') == std::string::npos,
            "a target that is none");
    const std::string whole = join({address.secure ? "https://" : "http://", address.host, ":",
                                    std::to_string(address.port), address.target});
    require(parseHttpAddress(whole) == address, "the parts give another address");
    const std::string line = escapeForRequestLine(address.target);
    for (const char c : line) require(c > ' ' && c < '\x7F', "a byte that breaks the request line");
    require(escapeForRequestLine(line) == line, "an escape is escaped");
}

}  // namespace

void http_address(std::string_view input) {
    const std::vector<std::string> parts = sections(input);
    const std::string location = parts.size() > 1 ? parts[1] : "";
    int exchanges = 0;
    try {
        const std::string body = fetchFollowingRedirects(parts[0], [&](const HttpAddress& at) {
            ++exchanges;
            checkParts(at);
            return HttpReply{exchanges < 20 ? 302 : 200, location, "body"};
        });
        require(body == "body" && location.empty() && exchanges == 1, "a redirect is not followed");
    } catch (const RuntimeFailure& failure) {
        require(failure.fault() == Fault::Transfer, "another fault");
        require(exchanges <= 11, "too many redirects");
    }
}

}  // namespace velvox::fuzz
