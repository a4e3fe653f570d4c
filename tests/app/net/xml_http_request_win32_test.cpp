// The news request with a real server on the loopback interface.
#include "app/net/xml_http_request_win32.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/local_server_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

const std::string news = "<!-News!->late<!-NewsEnd!->";

class XmlHttpRequestTest : public testing::Test {
 protected:
    void start(const char* path) {
        request.abort();
        request.open("get", server->address(path));
        request.send();
    }

    // In Wine an aborted transfer continues, but not after the request has been destroyed. So the
    // server ends all transfers before `request` is destroyed.
    void TearDown() override {
        server.reset();
        pumpFor(300);
    }

    bool completesWithin(unsigned milliseconds) {
        return pumpUntil([&] { return request.readyState() == 4; }, milliseconds);
    }

    std::optional<LocalServer> server{[](const Connection& to, const std::string& header) {
        if (header.starts_with("GET /good"))
            to.write(LocalServer::reply(news));
        else if (header.starts_with("GET /long"))
            to.write(LocalServer::reply(news + std::string((1U << 20) + 1 - news.size(), 'x')));
        else
            to.write(LocalServer::reply(news + std::string((1U << 20) - news.size(), 'x')));
    }};
    MsxmlRequest request;
};

TEST_F(XmlHttpRequestTest, RefusesAReplyThatAnnouncesMoreThanAMegabyte) {
    start("/limit");
    EXPECT_TRUE(completesWithin(10'000));
    EXPECT_TRUE(request.responseText().starts_with(news));
    start("/long");
    EXPECT_FALSE(completesWithin(1'000));
    start("/good");
    EXPECT_TRUE(completesWithin(10'000));
    EXPECT_EQ(request.responseText(), news);
}

}  // namespace
}  // namespace velvox
