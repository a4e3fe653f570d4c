// Replies that no page of the sites gives: endless, cut, malformed, lying about their size, or
// redirecting in circles; with what Velvox makes of each.
#pragma once

#include <vector>

#include "tests/e2e/proxy.h"

namespace velvox::e2e {

enum class Outcome { Link, Failure, LinkOrFailure, Waiting };

/// What is asked for: a page, or the player that the preview browser navigates to.
enum class Target { Page, Navigation };

struct HostileReply {
    const char* name;
    Outcome outcome;
    Proxy::Handler answer;
    Target target = Target::Page;
    bool quick = false;  ///< fit for every test run
    bool patient =
        false;  ///< given a minute, not three seconds, so that no time limit ends it early
};

/// The link that a reply with the expected text gives.
inline constexpr const char* hostileLink = "http://a/b.flv";

const std::vector<HostileReply>& hostileReplies();

}  // namespace velvox::e2e
