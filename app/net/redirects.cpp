#include "app/net/redirects.h"

#include <utility>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr int mostRedirects = 10;

bool isRedirect(const HttpReply& reply) {
    switch (reply.status) {
        case 301:
        case 302:
        case 303:
        case 307:
        case 308: return !reply.location.empty();
        default: return false;
    }
}

}  // namespace

std::string fetchFollowingRedirects(std::string_view address,
                                    const std::function<HttpReply(const HttpAddress&)>& exchange) {
    HttpAddress at = parseHttpAddress(address);
    for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
        HttpReply reply = exchange(at);
        if (!isRedirect(reply)) return std::move(reply.body);
        at = resolveLocation(at, reply.location);
    }
    throw RuntimeFailure(Fault::Transfer, "The page redirects too often");
}

}  // namespace velvox
