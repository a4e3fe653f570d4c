// Runs and ticks must leak nothing. e2e_metrics measures the memory of more runs.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"
#include "tests/e2e/resource_usage.h"

namespace velvox::e2e {
namespace {

TEST(LeakTest, RunsAndTicksLeaveNoObjectsBehind) {
    const Proxy proxy(Proxy::forwarding);
    const Program program(proxy.port());
    const auto round = [&] {
        for (const std::string& address : exampleAddresses)
            EXPECT_TRUE(program.runByMessages(address));
        for (int i = 0; i < 200; ++i) program.tick(i % 5 == 0 ? 1 : 5);
    };
    round();
    const ResourceUsage before = resourceUsage(program.process().id(), program.window());
    for (int i = 0; i < 5; ++i) round();
    const ResourceUsage after = resourceUsage(program.process().id(), program.window());
    SCOPED_TRACE(testing::Message() << "before: " << before << "\nafter: " << after);
    // Objects of a paint in progress count as well. A leak of one object per run would add thirty.
    EXPECT_LT(after.gdi, before.gdi + 20);
    EXPECT_LT(after.user, before.user + 20);
}

}  // namespace
}  // namespace velvox::e2e
