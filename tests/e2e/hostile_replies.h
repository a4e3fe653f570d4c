// Replies that the sites never send: endless, truncated, malformed, with a false length or with
// circular redirects. Each has the outcome that Velvox must show.
#pragma once

#include <vector>

#include "tests/e2e/proxy.h"

namespace velvox::e2e {

enum class Outcome { Link, Failure, LinkOrFailure, Waiting };

enum Trait : unsigned {
    quick = 1,      ///< fast enough for every test run
    hasty = 2,      ///< ended by the time limit, which is three seconds here instead of a minute
    player = 4,     ///< sent to the preview browser, not to the fetch of a page
    unbounded = 8,  ///< uses more and more memory until it ends
};

struct HostileReply {
    const char* name;
    Outcome outcome;
    Proxy::Handler answer;
    unsigned traits = 0;

    bool has(Trait trait) const { return (traits & trait) != 0; }
};

/// The link that a good reply gives.
inline constexpr const char* hostileLink = "http://a/b.flv";

const std::vector<HostileReply>& hostileReplies();

}  // namespace velvox::e2e
