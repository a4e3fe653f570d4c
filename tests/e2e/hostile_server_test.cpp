// Tests the hostile replies that end quickly. e2e_metrics runs all of them.
#include "tests/e2e/hostile_server.h"

#include <gtest/gtest.h>

namespace velvox::e2e {
namespace {

TEST(HostileServerTest, QuickRepliesEndInTheirLineAndCostLittle) {
    HostileServer server;
    for (const bool isHasty : {false, true}) {
        for (const HostileReply& reply : hostileReplies())
            if (reply.has(quick) && reply.has(hasty) == isHasty) server.observe(reply);
        server.expectGoodRun();
    }
}

}  // namespace
}  // namespace velvox::e2e
