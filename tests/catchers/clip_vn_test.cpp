#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

// The video's code is the text between the prefix and the next comma: "V jW".
const std::string address = "a,b http://www.clip.vn/watch/V jW,vn,a-title.html";
const std::string untilFeed =
    "linkin.Enabled False\n"
    "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n" +
    fetchThroughLink2("http://www.clip.vn/movies/nfo/V jW");
const std::string feedCame =
    untilFeed + "pane <font face='tahoma' size='2' >Getting Links...</font>\nketqua=\n";

std::string link(const std::string& url, int count) {
    return "<a href='" + url + "'><font face='tahoma' size='2'>Download Clip " +
           std::to_string(count) + "</a><br></font>";
}

TEST(ClipVNCatcherTest, IsListedWithItsExample) {
    expectListed(
        "Clip.vn",
        "http://www.clip.vn/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html");
}

TEST(ClipVNCatcherTest, ListsEveryEnclosureUnderTheNumberOfAll) {
    const auto run = [](const char* name, const std::string& feed, const std::string& links) {
        return CatcherRow{
            name, address, {feed}, feedCame + "pane " + links + "\nlinkin.Enabled True\n"};
    };
    const std::string evil = "x' onclick='y'><script>\"&amp;</script>\x01\xFE.flv";
    expectEffects(
        &Form1::ClipVNCatcher,
        {run("three, with bytes as they are",
             "<enclosure url=\"http://a/1.flv\" /> <enclosure url=\"" + evil +
                 "\"/><enclosure url=\"http://a/3.flv\"",
             link("http://a/1.flv", 3) + link(evil, 3) + link("http://a/3.flv", 3)),
         run("the next file is looked for after the last one",
             "<enclosure url=\"a.jpg\"/><enclosure url=\"b.flv\"/><enclosure url=\"c.flv\"/>",
             link("a.jpg\"/><enclosure url=\"b.flv", 2) + link("c.flv", 2)),
         run("no quotation mark: the first character goes", "<enclosure url=http://a/1.flv>",
             link("ttp://a/1.flv", 1)),
         run("nothing", "<rss>.FLV enclosure</rss>", "")});
}

TEST(ClipVNCatcherTest, ReportsEachFailure) {
    const std::string red = redLine("Video Unavilable..");
    const std::string atOnce = "linkin.Enabled False\n" + red;
    expectEffects(
        &Form1::ClipVNCatcher,
        {{"no comma", "http://www.clip.vn/watch/VjW", {}, atOnce},
         {"nothing", "", {}, atOnce},
         {"failed fetch", address, {failure}, untilFeed + red},
         {"file before its enclosure", address, {".flv <enclosure url=\"a.flv\""}, feedCame + red},
         {"file without enclosure", address, {"a.flv"}, feedCame + red}});
}

}  // namespace
}  // namespace velvox::testing
