#include "app/net/redirects.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(RedirectChainTest, FollowsEachKindToItsAddress) {
    const struct {
        const char *from, *location, *to;
    } rows[] = {
        {"a/x/1#part", "2?q", "http://a/x/2?q"},
        {"http://a/x y", "https://b#f", "https://b/#f"},
        {"http://a:8080/", "/%20%5B[x]%3A&y?[z]", "http://a:8080/%20%5B[x]%3A&y?[z]"},
    };
    for (const int status : {301, 302, 303, 307, 308}) {
        for (const auto& row : rows) {
            RedirectChain chain(row.from);
            EXPECT_TRUE(chain.follow({status, row.location, {}})) << status << row.location;
            EXPECT_EQ(toString(chain.current()), row.to);
        }
    }
    for (const int status : {0, 200, 201, 300, 304, 305, 404}) {
        RedirectChain chain("a/x y#part");
        EXPECT_FALSE(chain.follow({status, "b", {}})) << status;
        EXPECT_EQ(toString(chain.current()), "http://a/x y#part");
    }
}

TEST(RedirectChainTest, FailsAfterTenAndWhereARedirectLeadsNowhere) {
    RedirectChain chain("a");
    for (int i = 0; i < RedirectChain::maxRedirects; ++i) EXPECT_TRUE(chain.follow({302, "/", {}}));
    EXPECT_THROW(static_cast<void>(chain.follow({302, "/", {}})), RuntimeFailure);
    for (const char* location : {"file:///c:/secret", "", " ", "http://", "http://b:0/"}) {
        RedirectChain from("a");
        EXPECT_THROW(static_cast<void>(from.follow({302, location, {}})), RuntimeFailure)
            << location;
    }
}

}  // namespace
}  // namespace velvox
