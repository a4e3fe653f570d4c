#include "app/net/redirects.h"

#include <gtest/gtest.h>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

TEST(RedirectChainTest, FollowsEachKindToItsAddress) {
    for (const int status : {301, 302, 303, 307, 308}) {
        RedirectChain chain("a/x/1#part");
        EXPECT_TRUE(chain.follow({status, "2?q", {}})) << status;
        EXPECT_EQ(toString(chain.current()), "http://a/x/2?q");
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
    // A relative redirect lengthens the address: here to the maximum, and then by one byte more.
    RedirectChain longer("a/x/");
    EXPECT_TRUE(longer.follow({302, std::string(65'536 - 11, 'x'), {}}));
    EXPECT_THROW(static_cast<void>(longer.follow({302, "?", {}})), RuntimeFailure);
    for (const char* location : {"file:///c:/secret", "", " ", "http://", "http://b:0/"}) {
        RedirectChain from("a");
        EXPECT_THROW(static_cast<void>(from.follow({302, location, {}})), RuntimeFailure)
            << location;
    }
}

}  // namespace
}  // namespace velvox
