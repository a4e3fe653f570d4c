// Replies that no page of the sites gives: endless, cut, malformed, lying about their size, or
// redirecting in circles; with what Velvox makes of each.
#pragma once

#include <vector>

#include "tests/e2e/proxy.h"

namespace velvox::e2e {

enum class Outcome { Link, Failure, LinkOrFailure, Waiting };

enum Trait : unsigned {
    quick = 1,      ///< fit for every test run
    hasty = 2,      ///< ended by the time limit: three seconds instead of a minute
    player = 4,     ///< given to the preview browser, not to the fetch of a page
    unbounded = 8,  ///< fills the memory as long as it lasts
};

struct HostileReply {
    const char* name;
    Outcome outcome;
    Proxy::Handler answer;
    unsigned traits = 0;

    bool has(Trait trait) const { return (traits & trait) != 0; }
};

/// The link that a reply with the expected text gives.
inline constexpr const char* hostileLink = "http://a/b.flv";

const std::vector<HostileReply>& hostileReplies();

}  // namespace velvox::e2e
