#pragma once

#include <string_view>

#include "app/net/http_address.h"
#include "app/net/reply_header.h"

namespace velvox {

/// The requests of one transfer: one for the given address, then one for each redirect (301, 302,
/// 303, 307 and 308), up to maxRedirects.
class RedirectChain {
 public:
    static constexpr int maxRedirects = 10;

    /// Throws RuntimeFailure (Transfer) if `address` cannot be fetched.
    explicit RedirectChain(std::string_view address);

    /// The address to request next; after the last reply, the address that sent it.
    const HttpAddress& current() const noexcept { return current_; }

    /// Handles the reply to the request for `current`. Returns true for a redirect: `current` is
    /// then the address to request next. Throws RuntimeFailure (Transfer) for too many redirects
    /// and for a redirect without a valid address or to one of more than maxAddressBytes.
    [[nodiscard]] bool follow(const ReplyHeader& reply);

 private:
    HttpAddress current_;
    int redirects_ = 0;
};

}  // namespace velvox
