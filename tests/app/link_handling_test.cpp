#include <gtest/gtest.h>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {
namespace {

std::string link(const std::string& address) {
    return "pane <a href='" + address + "'><font face='tahoma' size=2>Download</font></a>\n";
}

const std::string enabled = "linkin.Enabled True\n";
const std::string removed =
    "pane <font face='tahoma' size=2 color='red'>Video Removed From Server...</font>\n";

std::string metacafe(const std::string& address) {
    return enabled + link(address);
}

std::string youtube(const std::string& address) {
    return link(address) + enabled;
}

TEST(LinkHandlingTest, CutsTheLinkFromTheAddressArrivedAt) {
    const std::pair<std::string, std::string> rows[] = {
        // Metacafe
        {"http://www.metacafe.com/f/p.swf?mediaURL=http://a/b%20c%5Bd%5D.flv&x=y.flv",
         metacafe("http://a/b c[d].flv")},
        {"metacafe.com/f/mediaURL=.flv", metacafe(".flv")},
        {"metacafe.com/f/a.flv?mediaURL=%5b%2520'><b>.flvmediaURL=", metacafe("%5b%2520'><b>.flv")},
        {"metacafe.com/f/?mediaURL=http://a/video_removed.flv", enabled + removed},
        {"metacafe.com/f/?mediaURL=video_removed%2E.flv", metacafe("video_removed%2E.flv")},
        {"metacafe.com/f/?x=a.flv", ""},
        {"metacafe.com/f/?a.flv&mediaURL=b", ""},
        {"metacafe.com/fplayer/612285/lifted.swf?mediaURL=a.flv", ""},
        // YouTube
        {"http://www.youtube.com/player2.swf?video_id=abc&t=x",
         youtube("http://www.youtube.com/get_video?video_id=abc&t=x")},
        {"http://www.youtube.com/?video_id=abc", youtube("http://www.youtube.com/?video_id=abc")},
        {"http://youtube.com/v?video_id=v%20",
         youtube("http://youtube.com/get_video?get_videoideo_id=get_video%20")},
        {"?video_id=youtube.com/a/b?video_id=youtube.com/a/b",
         youtube("?video_id=youtube.com/get_video?video_id=youtube.com/get_video")},
        {"http://www.youtube.com/watch?v=abc", ""},
        // Both tests are made, whatever the first gave.
        {"metacafe.com/f/?mediaURL=a.flv&youtube.com/p?video_id=x",
         metacafe("a.flv") +
             youtube("metacafe.com/f/?mediaURL=a.flv&youtube.com/get_video?video_id=x")},
        {"metacafe.com/f/?mediaURL=a.flv&youtube.com/watch", metacafe("a.flv")},
        {"metacafe.com/f/?youtube.com/p?video_id=x", ""},
        // Neither
        {"about:blank", ""},
        {"", ""},
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
