#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "app/net/http_address.h"

namespace velvox {

struct HttpReply {
    int status = 0;
    std::string location;  ///< of a redirect, as the header had it
    std::string body;
};

/// Fetches an address, following its redirects (301, 302, 303, 307 and 308), ten at most. Returns
/// the last reply's body, whatever its status. `exchange` makes one request. Throws RuntimeFailure
/// (Transfer) for an address that cannot be fetched, a redirect that leads to none or says nothing,
/// and one redirect too many.
std::string fetchFollowingRedirects(std::string_view address,
                                    const std::function<HttpReply(const HttpAddress&)>& exchange);

}  // namespace velvox
