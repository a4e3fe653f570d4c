#include "app/net/redirects.h"

#include <gtest/gtest.h>

#include <map>

#include "base/join.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

/// Sites by address; an unknown one answers 404 with a body of its own.
struct Sites {
    std::map<std::string, HttpReply> replies;
    std::string asked = {};

    std::string fetch(std::string_view address) {
        asked.clear();
        return fetchFollowingRedirects(address, [this](const HttpAddress& at) {
            const std::string whole =
                join({at.secure ? "https://" : "http://", at.host, at.target});
            asked += whole + " ";
            const auto found = replies.find(whole);
            return found == replies.end() ? HttpReply{404, "", "not here"} : found->second;
        });
    }
};

TEST(RedirectsTest, FollowsEachKindWithALocationAndNothingElse) {
    for (const int status : {301, 302, 303, 307, 308}) {
        Sites sites{{{"http://a/x/1", {status, "2?q", "moved"}},
                     {"http://a/x/2?q", {status, "https://b", ""}},
                     {"https://b/", {200, "ignored", "here"}}}};
        EXPECT_EQ(sites.fetch("a/x/1#part"), "here") << status;
        EXPECT_EQ(sites.asked, "http://a/x/1 http://a/x/2?q https://b/ ") << status;
    }
    for (const HttpReply& last :
         {HttpReply{300, "b", "body"}, {304, "b", "body"}, {201, "b", "body"}}) {
        Sites sites{{{"http://a/", last}}};
        EXPECT_EQ(sites.fetch("a"), "body") << last.status;
    }
}

TEST(RedirectsTest, EndsAfterTen) {
    Sites chain;
    for (int i = 0; i < 11; ++i)
        chain.replies["http://a/" + std::to_string(i)] = {302, std::to_string(i + 1), ""};
    EXPECT_EQ(chain.fetch("a/1"), "not here") << "ten lead to the last page";
    EXPECT_THROW(chain.fetch("a/0"), RuntimeFailure);
}

TEST(RedirectsTest, FailsWhereARedirectLeadsNowhere) {
    for (const char* location : {"file:///c:/secret", "", " ", "http://", "http://b:0/"}) {
        Sites sites{{{"http://a/", {302, location, "body"}}}};
        EXPECT_THROW(sites.fetch("a"), RuntimeFailure) << location;
        EXPECT_EQ(sites.asked, "http://a/ ");
    }
}

}  // namespace
}  // namespace velvox
