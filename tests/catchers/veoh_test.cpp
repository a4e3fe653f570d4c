#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://www.veoh.com/videos/v123abc?source=x";
const std::string start =
    "linkin.Enabled False\n"
    "pane <font face='tahoma' size='2'>Connecting....</font>\n";
const std::string red =
    "linkin.Enabled True\n"
    "pane <font face='tahoma' size='2' color='red'>Download Failed !</font>\n";
const std::string detailsCame = "pane <font face='tahoma' size='2'>Requesting URL....</font>\n";

std::string details(const std::string& id) {
    const std::string at = "http://www.veoh.com/rest/video/" + id + "/details";
    return "link2=" + id + "\nlink2=" + at + "\nfetch " + at + "\n";
}

std::string flvLink(const std::string& url) {
    return "pane <font face='tahoma' size='2'><a href='" + url + "'>Download FLV</a>";
}

const std::string flvLine = "  fullPreviewHashPath=\"http://a/b.flv\" \r\n";
const std::string end = "</font>\nlinkin.Enabled True\n";

TEST(VeOHTest, TakesTheIdentifierUpToAQuestionMark) {
    const auto run = [](const std::string& from, const std::string& id, const std::string& before) {
        return CatcherRow{
            from,
            from,
            {flvLine},
            before + start + details(id) + detailsCame + flvLink("http://a/b.flv") + end};
    };
    expectEffects(&Form1::veOH, {run(address, "v123abc", ""),
                                 run("http://www.veoh.com/videos/v123abc", "v123abc",
                                     "linkin.Text=http://www.veoh.com/videos/v123abc?\n"),
                                 run("veoh.com/videos/?", "", ""),
                                 run("veoh.com/videos/a b/<i>'?", "a b/<i>'", ""),
                                 run("/videos/", "", "linkin.Text=/videos/?\n")});
}

TEST(VeOHTest, CutsAtFixedDistancesFromTheLineEnd) {
    const auto run = [](const std::string& page, const std::string& links) {
        return CatcherRow{
            page, address, {page}, start + details("v123abc") + detailsCame + links + end};
    };
    const std::string mp4 = "<br><a href='http://a/c.mp4'>Download MP4</a>";
    expectEffects(
        &Form1::veOH,
        {run(flvLine, flvLink("http://a/b.flv")),
         run(flvLine + "ipodLink=\"http://a/c.mp4\" \r\n", flvLink("http://a/b.flv") + mp4),
         run("ipodLink=\"http://a/c.mp4\" \r\n" + flvLine, flvLink("http://a/b.flv") + mp4),
         run("fullPreviewHashPath=\"http://a/b.flv\"\r\n", flvLink("http://a/b.fl")),
         run("fullPreviewHashPath=\"http://a/b.flv\"   \r\n", flvLink("http://a/b.flv\" ")),
         run("fullPreviewHashPath=abc\r\n", flvLink(""))});
}

TEST(VeOHTest, ReportsEachFailure) {
    const auto afterDetails = [](const std::string& page) {
        return CatcherRow{page, address, {page}, start + details("v123abc") + detailsCame + red};
    };
    expectEffects(
        &Form1::veOH,
        {{"not a video", "veoh.com/x?", {}, start + red},
         {"question mark before the video alone", "veoh.com/?/videos/v1", {}, start + red},
         {"failed fetch", address, {failure}, start + details("v123abc") + red},
         afterDetails("\r\nfullPreviewHashPath=\"http://a/b.flv\" \n"),
         afterDetails("fullPreviewHashPath=\"\r\n"),
         // ".mp4" anywhere asks for the second line.
         afterDetails("fullPreviewHashPath=\"http://a/b.mp4\" \r\n"),
         afterDetails(flvLine + "ipodLink=\"\r\n.mp4"),
         afterDetails(flvLine + "ipodLink=\"http://a/c.mp4\"")});
}

}  // namespace
}  // namespace velvox::testing
