// Every site's example from the Download button to its links, byte for byte.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

std::string clipLink(const std::string& file) {
    return "<a href='http://" + file +
           "'><font face='tahoma' size='2'>Download Clip 3</a><br></font>";
}

std::string comicLinks(const std::string& base, int pages) {
    std::string html;
    for (int page = 1; page <= pages; ++page) {
        const std::string number = std::to_string(page);
        html += "<font face='tahoma' size='2'><a href='" + base + "meo03_00" + number +
                ".jpg'>Download Image " + number + "<a></font><br>";
    }
    return html;
}

std::string arrivedLink(const std::string& address) {
    return "<a href='" + address + "'><font face='tahoma' size=2>Download</font></a>";
}

// Acts as a user: chooses a site, clicks the example, presses Download and closes the area. Some
// catchers leave the address box locked. A click on the next example must replace the address even
// then.
TEST(ExamplesTest, EachSiteYieldsItsLinks) {
    const struct {
        const char* site;
        std::string html;
        bool locked;
        const char* address;  ///< in the address box afterwards
    } rows[] = {
        {"YouTube",
         arrivedLink("http://www.youtube.com/get_video?video_id=Yp5O8Koe_A4&l=215&"
                     "t=OEgsToPDskLhRw4n0cT2mQ&sk=pk3Hj6"),
         false, "http://www.youtube.com/watch?v=Yp5O8Koe_A4"},
        {"clip site",
         clipLink("media3.clip.vn/store/2007/07/19/VjW_1_ban-thang.flv") +
             clipLink("media3.clip.vn/store/2007/07/19/VjW_2_an-mung.flv") +
             clipLink("media5.clip.vn/store/2007/07/19/VjW_3_khan-dai.flv"),
         false,
         "http://www.clip.vn/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html"},
        {"Sevenload",
         "<a href='http://data24.sevenload.com/slcom/qw/er/ty/s931TZW-flv.flv'>"
         "<font face='tahoma' size='2'>Download</a></font>",
         true, "http://en.sevenload.com/videos/s931TZW/HiB-auf-dem-CSD"},
        {"Veoh", veohLinks, false, "http://www.veoh.com/videos/v669398tRxFQc4d?"},
        {"Metacafe",
         arrivedLink("http://v.mccont.metacafe.com/ItemFiles/"
                     "[From www.metacafe.com] 983094.3107452.11.flv"),
         false, "http://www.metacafe.com/watch/983094/dog_singing_hippo/"},
        {"comic site", comicLinks("http://comic.vuilen.com/books/42/354/", 8), true,
         "http://comic.vuilen.com/view_book_detail.php?bookid=42&chapterid=354"},
    };
    const Program program;
    int entry = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.site);
        program.startExample(entry++);
        program.expectPane(row.html);
        EXPECT_EQ(program.addressLocked(), row.locked);
        EXPECT_EQ(program.address(), row.address);
        program.closeArea();
    }
}

}  // namespace
}  // namespace velvox::e2e
