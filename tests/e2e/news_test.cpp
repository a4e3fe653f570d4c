// The news strip with real requests.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

void expectStrip(const Program& program, const std::string& text) {
    EXPECT_NO_THROW(driver().waitPart(program.control(controlId("Label4")), text));
}

TEST(NewsTest, ShowsTheSitesNewsAndLaterOthers) {
    std::mutex mutex;
    std::string news = "| first news |";
    std::vector<std::string> requests;
    Proxy proxy(Proxy::forwarding, [&](const Exchange& to) {
        const std::lock_guard lock(mutex);
        requests.push_back(to.address());
        to.reply("<html><!-News!->" + news + "<!-NewsEnd!-></html>");
    });
    {
        // The news of the replica site scroll in from the right, character by character.
        const Program replica;
        expectStrip(replica, "| Velvox 1.00 is out");
    }
    const Program own(proxy.port());
    expectStrip(own, "| firs");
    {
        const std::lock_guard lock(mutex);
        news = "| changed |";
    }
    // A run and the news strip do not disturb each other.
    own.expectGoodRun();
    expectStrip(own, "| first news |");
    expectStrip(own, "| changed |");
    const std::lock_guard lock(mutex);
    ASSERT_GE(requests.size(), 2U);
    EXPECT_TRUE(requests[0].starts_with("http://www.velvox.example/news.txt?rnd=")) << requests[0];
    EXPECT_NE(requests[0], requests[1]) << "the answer could come out of a cache";
}

}  // namespace
}  // namespace velvox::e2e
