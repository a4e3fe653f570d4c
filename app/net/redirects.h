#pragma once

#include <string_view>

#include "app/net/http_address.h"
#include "app/net/reply_header.h"

namespace velvox {

/// The requests of one transfer: one for the address it is given, then one for each redirect (301,
/// 302, 303, 307 and 308), ten at most.
class RedirectChain {
 public:
    static constexpr int maxRedirects = 10;

    /// Throws RuntimeFailure (Transfer) for an address that cannot be fetched.
    explicit RedirectChain(std::string_view address);

    /// The next request; after the last reply, the address that it came from.
    const HttpAddress& current() const noexcept { return current_; }

    /// Takes the reply to `current`. Returns true for a redirect, after which `current` is the next
    /// request. Throws RuntimeFailure (Transfer) for one redirect too many and for one that leads
    /// to no address or says nothing.
    [[nodiscard]] bool follow(const ReplyHeader& reply);

 private:
    HttpAddress current_;
    int redirects_ = 0;
};

}  // namespace velvox
