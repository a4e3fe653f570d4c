#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://www.veoh.com/videos/v123abc?source=x";
const std::string start =
    "linkin.Enabled False\n"
    "pane <font face='tahoma' size='2'>Connecting....</font>\n";

std::string details(const std::string& id) {
    return start + "link2=" + id + "\n" +
           fetchThroughLink2("http://www.veoh.com/rest/video/" + id + "/details");
}

const std::string detailsCame = "pane <font face='tahoma' size='2'>Requesting URL....</font>\n";

std::string links(const std::string& flv, const std::string& mp4 = "") {
    return detailsCame + "pane <font face='tahoma' size='2'><a href='" + flv +
           "'>Download FLV</a>" + mp4 + "</font>\nlinkin.Enabled True\n";
}

const std::string flvLine = "  fullPreviewHashPath=\"http://a/b.flv\" \r\n";

TEST(VeOHTest, IsListedWithItsExample) {
    expectListed("Veoh.com", "http://www.veoh.com/videos/v669398tRxFQc4d");
}

TEST(VeOHTest, TakesTheIdentifierUpToAQuestionMark) {
    const auto run = [](const std::string& from, const std::string& id, const std::string& before) {
        return CatcherRow{from, from, {flvLine}, before + details(id) + links("http://a/b.flv")};
    };
    expectEffects(&Form1::veOH, {run(address, "v123abc", ""),
                                 run("http://www.veoh.com/videos/v123abc", "v123abc",
                                     "linkin.Text=http://www.veoh.com/videos/v123abc?\n"),
                                 run("veoh.com/videos/a b/<i>'?", "a b/<i>'", ""),
                                 run("/videos/", "", "linkin.Text=/videos/?\n")});
}

TEST(VeOHTest, CutsAtFixedDistancesFromTheLineEnd) {
    const auto run = [](const std::string& page, const std::string& shown) {
        return CatcherRow{page, address, {page}, details("v123abc") + shown};
    };
    const std::string mp4Line = "ipodLink=\"http://a/c.mp4\" \r\n";
    const std::string both =
        links("http://a/b.flv", "<br><a href='http://a/c.mp4'>Download MP4</a>");
    expectEffects(&Form1::veOH,
                  {run(flvLine + mp4Line, both), run(mp4Line + flvLine, both),
                   run("fullPreviewHashPath=\"http://a/b.flv\"\r\n", links("http://a/b.fl")),
                   run("fullPreviewHashPath=\"http://a/b.flv\"   \r\n", links("http://a/b.flv\" ")),
                   run("fullPreviewHashPath=abc\r\n", links(""))});
}

TEST(VeOHTest, ReportsEachFailure) {
    const std::string red = redLine("Download Failed !");
    const auto afterDetails = [&](const std::string& page) {
        return CatcherRow{page, address, {page}, details("v123abc") + detailsCame + red};
    };
    expectEffects(
        &Form1::veOH,
        {{"not a video", "veoh.com/x?", {}, start + red},
         {"question mark before the video alone", "veoh.com/?/videos/v1", {}, start + red},
         {"failed fetch", address, {failure}, details("v123abc") + red},
         afterDetails("\r\nfullPreviewHashPath=\"http://a/b.flv\" \n"),
         afterDetails("fullPreviewHashPath=\"\r\n"),
         // If ".mp4" occurs anywhere in the reply, the catcher also requires a valid line with
         // `ipodLink`.
         afterDetails("fullPreviewHashPath=\"http://a/b.mp4\" \r\n"),
         afterDetails(flvLine + "ipodLink=\"\r\n.mp4"),
         afterDetails(flvLine + "ipodLink=\"http://a/c.mp4\"")});
}

}  // namespace
}  // namespace velvox::testing
