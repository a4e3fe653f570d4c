#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string start =
    "linkin.Enabled False\n"
    "ketqua=\n"
    "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n";
const std::string fetched = "pane <font face='tahoma' size='2' >Connecting...</font>\n";
const std::string player =
    "pane <font face='tahoma' size='2' >Getting Preview and Download Url..</font>\n"
    "navigate http://www.youtube.com/v/";
const std::string enabled = "linkin.Enabled True\n";
const std::string red =
    enabled + "pane <font face='tahoma' size='2' color='red'>Video Unavilable..</font>\n";

TEST(YoutubeCatcherTest, LoadsThePlayerOfEverythingBehindTheFirstEqualsSign) {
    const std::pair<std::string, std::string> cases[] = {
        {"http://www.youtube.com/watch?v=abc123", "abc123"},
        {"http://www.youtube.com/watch?v=abc123&feature=x", "abc123&feature=x"},
        {" youtube.com/watch?v=a b'<i>\x80 ", "a b'<i>\x80 "},
        {"no equals sign", "no equals sign"},
    };
    std::vector<CatcherRow> rows;
    for (const auto& [address, identifier] : cases)
        rows.push_back(
            {address,
             address,
             {"a page"},
             start + "fetch " + address + "\n" + fetched + player + identifier + "\n" + enabled});
    expectEffects(&Form1::YoutubeCatcher, rows);
}

TEST(YoutubeCatcherTest, ReportsEachFailure) {
    const std::string fetch = start + "fetch a=b\n";
    expectEffects(
        &Form1::YoutubeCatcher,
        {{"error page",
          "a=b",
          {"x contained a malformed y"},
          fetch + fetched +
              "pane <font face='tahoma' size='2' color='red'>Cannot Validate Request | The Video "
              "Might Be Removed From Server..</font>\nketqua=\n" +
              enabled},
         {"failed fetch", "a=b", {failure}, fetch + red},
         {"browser that refuses", "a=b", {""}, fetch + fetched + player + "b\n" + red, true}});
}

}  // namespace
}  // namespace velvox::testing
