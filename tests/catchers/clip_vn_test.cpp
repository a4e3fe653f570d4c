#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string red =
    "linkin.Enabled True\n"
    "pane <font face='tahoma' size='2' color='red'>Video Unavilable..</font>\n";

std::string untilFeed(const std::string& code) {
    return "linkin.Enabled False\n"
           "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n"
           "link2=http://www.clip.vn/movies/nfo/" +
           code + "\nfetch http://www.clip.vn/movies/nfo/" + code + "\n";
}

const std::string feedCame =
    "pane <font face='tahoma' size='2' >Getting Links...</font>\nketqua=\n";
const std::string address = "http://www.clip.vn/watch/VjW,a-title.html";

std::string link(const std::string& url, int count) {
    return "<a href='" + url + "'><font face='tahoma' size='2'>Download Clip " +
           std::to_string(count) + "</a><br></font>";
}

TEST(ClipVNCatcherTest, ListsEveryEnclosureUnderTheNumberOfAll) {
    const auto run = [](const char* name, const std::string& feed, const std::string& links) {
        return CatcherRow{
            name,
            address,
            {feed},
            untilFeed("VjW") + feedCame + "pane " + links + "\nlinkin.Enabled True\n"};
    };
    const std::string evil = "x' onclick='y'><script>\"&amp;</script>\x01\xFE.flv";
    expectEffects(
        &Form1::ClipVNCatcher,
        {run("three",
             "<enclosure url=\"http://a/1.flv\" /> <enclosure url=\"http://a/2.flv\"/>"
             "<enclosure url=\"http://a/3.flv\"",
             link("http://a/1.flv", 3) + link("http://a/2.flv", 3) + link("http://a/3.flv", 3)),
         run("the next file is looked for behind the last one",
             "<enclosure url=\"a.jpg\"/><enclosure url=\"b.flv\"/><enclosure url=\"c.flv\"/>",
             link("a.jpg\"/><enclosure url=\"b.flv", 2) + link("c.flv", 2)),
         run("no quotation mark: the first character goes", "<enclosure url=http://a/1.flv>",
             link("ttp://a/1.flv", 1)),
         run("bytes as they are", "<enclosure url=\"" + evil + "\">", link(evil, 1)),
         run("nothing", "<rss>.FLV enclosure</rss>", "")});
}

TEST(ClipVNCatcherTest, TakesTheCodeUpToTheFirstCommaBehindThePrefix) {
    const std::pair<std::string, std::string> cases[] = {
        {"http://www.clip.vn/watch/VjW,vn,Clip.html", "VjW"},
        {"a,b http://www.clip.vn/watch/x y,", "x y"},
        {"http://www.clip.vn/watch/http://www.clip.vn/watch/Q,", "http://www.clip.vn/watch/Q"},
    };
    std::vector<CatcherRow> rows;
    for (const auto& [from, code] : cases)
        rows.push_back(
            {from, from, {"x"}, untilFeed(code) + feedCame + "pane \nlinkin.Enabled True\n"});
    expectEffects(&Form1::ClipVNCatcher, rows);
}

TEST(ClipVNCatcherTest, ReportsEachFailure) {
    const std::string atOnce = "linkin.Enabled False\n" + red;
    const std::string afterFeed = untilFeed("VjW") + feedCame + red;
    expectEffects(
        &Form1::ClipVNCatcher,
        {{"no comma", "http://www.clip.vn/watch/VjW", {}, atOnce},
         {"nothing", "", {}, atOnce},
         {"failed fetch", address, {failure}, untilFeed("VjW") + red},
         {"file before its enclosure", address, {".flv <enclosure url=\"a.flv\""}, afterFeed},
         {"file without enclosure", address, {"a.flv"}, afterFeed}});
}

}  // namespace
}  // namespace velvox::testing
