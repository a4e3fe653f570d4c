#include "app/net/redirects.h"

#include <utility>

#include "app/net/resolve_location.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr int mostRedirects = 10;

bool isRedirect(int status) {
    switch (status) {
        case 301:
        case 302:
        case 303:
        case 307:
        case 308: return true;
        default: return false;
    }
}

}  // namespace

std::string fetchFollowingRedirects(std::string_view address,
                                    const std::function<HttpReply(const HttpAddress&)>& exchange) {
    HttpAddress at = parseHttpAddress(address);
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        HttpReply reply = exchange(at);
        if (!isRedirect(reply.status)) return std::move(reply.body);
        at = resolveLocation(at, reply.location);
        if (at.port == 0) throw RuntimeFailure(Fault::Transfer, "The page redirects to port 0");
    }
    throw RuntimeFailure(Fault::Transfer, "The page redirects too often");
}

}  // namespace velvox
