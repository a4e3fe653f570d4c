#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

// The only test that waits for the real timeout of a minute. Two programs wait at the same time,
// one of them for its preview: Metacafe's catcher fetches no page, and its run ends with the line
// "Sending URL Request...".
TEST(PatienceTest, ServersThatNeverAnswerAreGivenAMinute) {
    Proxy proxy([](const Exchange& to) { to.staySilent(); });
    const Program browsing(proxy.port());
    browsing.start("http://www.metacafe.com/watch/983094/dog_singing_hippo/");
    ASSERT_TRUE(proxy.asked(1));
    {
        const Program fetching(proxy.port());
        fetching.start("http://www.youtube.com/watch?v=Yp5O8Koe_A4");
        ASSERT_TRUE(proxy.asked(2));
        const auto started = Clock::now();
        fetching.expectPane("<font face='tahoma' size='2' color='red'>Video Unavilable..</font>",
                            Milliseconds(75'000));
        const auto spent = Clock::now() - started;
        EXPECT_GT(spent, std::chrono::seconds(58));
        EXPECT_LT(spent, std::chrono::seconds(70));
        proxy.answerWith(Proxy::forwarding);
        fetching.expectGoodRun();
    }
    browsing.expectPane("<font face='tahoma' size='2'>Sending URL Request...</font>");
    EXPECT_TRUE(browsing.addressLocked());
    browsing.expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
