#include "app/net/redirects.h"

#include "app/net/resolve_location.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

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

RedirectChain::RedirectChain(std::string_view address) : current_(parseHttpAddress(address)) {}

bool RedirectChain::follow(const ReplyHeader& reply) {
    if (!isRedirect(reply.status)) return false;
    if (redirects_ == maxRedirects)
        throw RuntimeFailure(Fault::Transfer, "The page redirects too often");
    ++redirects_;
    current_ = resolveLocation(current_, reply.location);
    if (toString(current_).size() > maxAddressBytes)
        throw RuntimeFailure(Fault::Transfer, "The page redirects to an address that is too long");
    if (current_.port == 0) throw RuntimeFailure(Fault::Transfer, "The page redirects to port 0");
    return true;
}

}  // namespace velvox
