#include <gtest/gtest.h>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {
namespace {

std::string link(const std::string& address) {
    return "pane <a href='" + address + "'><font face='tahoma' size=2>Download</font></a>\n";
}

const std::string enabled = "linkin.Enabled True\n";
const std::string removed =
    "pane <font face='tahoma' size=2 color='red'>Video Removed From Server...</font>\n";

TEST(LinkHandlingTest, CutsTheLinkFromTheAddressArrivedAt) {
    const std::pair<std::string, std::string> rows[] = {
        // Metacafe
        {"http://www.metacafe.com/f/p.swf?mediaURL=http://a/b%20c%5Bd%5D.flv&x=y.flv",
         enabled + link("http://a/b c[d].flv")},
        {"metacafe.com/f/a.flv?mediaURL=%5b%2520'><b>.flvmediaURL=",
         enabled + link("%5b%2520'><b>.flv")},
        {"metacafe.com/f/?mediaURL=http://a/video_removed.flv", enabled + removed},
        {"metacafe.com/f/?mediaURL=video_removed%2E.flv", enabled + link("video_removed%2E.flv")},
        {"metacafe.com/f/?x=a.flv", ""},
        {"metacafe.com/f/?a.flv&mediaURL=b", ""},
        {"metacafe.com/fplayer/612285/lifted.swf?mediaURL=a.flv", ""},
        // YouTube
        {"http://www.youtube.com/player2.swf?video_id=abc&t=x",
         link("http://www.youtube.com/get_video?video_id=abc&t=x") + enabled},
        {"http://www.youtube.com/?video_id=abc",
         link("http://www.youtube.com/?video_id=abc") + enabled},
        {"?video_id=youtube.com/a/b?video_id=youtube.com/a/b",
         link("?video_id=youtube.com/get_video?video_id=youtube.com/get_video") + enabled},
        {"http://www.youtube.com/watch?v=abc", ""},
        // Metacafe's and YouTube's patterns are both tried, whether or not the first one matches.
        {"metacafe.com/f/?mediaURL=a.flv&youtube.com/p?video_id=x",
         enabled + link("a.flv") +
             link("metacafe.com/f/?mediaURL=a.flv&youtube.com/get_video?video_id=x") + enabled},
        {"metacafe.com/f/?youtube.com/p?video_id=x", ""},
        // Neither Metacafe nor YouTube
        {"about:blank", ""},
    };
    for (const auto& [address, effects] : rows) {
        Form1Fixture fixture;
        fixture.browser.location = address;
        fixture.browser.DocumentComplete();
        EXPECT_EQ(fixture.log.take(), effects) << address;
    }
}

TEST(LinkHandlingTest, DoesNothingOfflineOrWithoutAnAddress) {
    Form1Fixture fixture;
    fixture.browser.location = "http://www.youtube.com/p?video_id=abc";
    fixture.browser.offline = true;
    fixture.form.web_DocumentComplete();
    fixture.browser.offline = false;
    fixture.browser.refusing = true;
    fixture.form.web_DocumentComplete();
    EXPECT_EQ(fixture.log.take(), "");
}

}  // namespace
}  // namespace velvox::testing
