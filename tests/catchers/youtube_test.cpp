#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

std::string untilPage(const std::string& address) {
    return "linkin.Enabled False\n"
           "ketqua=\n"
           "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n"
           "fetch " +
           address + "\n";
}

const std::string pageCame = "pane <font face='tahoma' size='2' >Connecting...</font>\n";

std::string player(const std::string& identifier) {
    return pageCame +
           "pane <font face='tahoma' size='2' >Getting Preview and Download Url..</font>\n"
           "navigate http://www.youtube.com/v/" +
           identifier + "\n";
}

TEST(YoutubeCatcherTest, IsListedWithItsExample) {
    expectListed("Youtube", "http://www.youtube.com/watch?v=Yp5O8Koe_A4");
}

TEST(YoutubeCatcherTest, LoadsThePlayerOfEverythingBehindTheFirstEqualsSign) {
    const auto run = [](const std::string& address, const std::string& identifier) {
        return CatcherRow{address,
                          address,
                          {"a page"},
                          untilPage(address) + player(identifier) + "linkin.Enabled True\n"};
    };
    expectEffects(&Form1::YoutubeCatcher,
                  {run("http://www.youtube.com/watch?v=abc123&feature=x", "abc123&feature=x"),
                   run(" youtube.com/watch?v=a b'<i>\x80 ", "a b'<i>\x80 "),
                   run("no equals sign", "no equals sign")});
}

TEST(YoutubeCatcherTest, ReportsEachFailure) {
    const std::string red = redLine("Video Unavilable..");
    expectEffects(
        &Form1::YoutubeCatcher,
        {{"error page",
          "a=b",
          {"x contained a malformed y"},
          untilPage("a=b") + pageCame +
              "pane <font face='tahoma' size='2' color='red'>Cannot Validate Request | The Video "
              "Might Be Removed From Server..</font>\nketqua=\nlinkin.Enabled True\n"},
         {"failed fetch", "a=b", {failure}, untilPage("a=b") + red},
         {"browser that refuses", "a=b", {""}, untilPage("a=b") + player("b") + red, true}});
}

}  // namespace
}  // namespace velvox::testing
