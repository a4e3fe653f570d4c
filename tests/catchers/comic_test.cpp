#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://comic.vuilen.com/view_book_detail.php?bookid=42";
const std::string start =
    "pane <font face='tahoma' size='2'>Connecting...</font>\n"
    "linkin.Enabled False\n"
    "fetch " +
    address + "\n";
const std::string book = "http://a/books/abc/";
const std::string reader = book + "index.php?x=index.php";

std::string frame(const std::string& source) {
    return "'></iframe><IFRAME FRAMEBORDER='0' src='" + source + "'></iframe>";
}

// The catcher uses the first frame, and of its source the part before the first "index.php".
const std::string page = frame(reader) + frame("b/index.php");
const std::string untilConfig =
    start + "link2=" + reader + "\n" + fetchThroughLink2(book + "config.xml");

/// The effects up to the collection of `count` pages.
std::string collecting(int count) {
    std::string effects = untilConfig + "ketqua=\n";
    for (int i = 0; i < count; ++i) effects += "yield\n";
    return effects;
}

std::string link(const std::string& name, int number) {
    return "<font face='tahoma' size='2'><a href='" + book + name + "'>Download Image " +
           std::to_string(number) + "<a></font><br>";
}

TEST(ComicVuiLenTest, IsListedWithItsExample) {
    expectListed("Comic Books - Vuilen.com",
                 "http://comic.vuilen.com/view_book_detail.php?bookid=42&chapterid=354");
}

TEST(ComicVuiLenTest, NumbersEveryPageAndLeavesTheBoxDisabled) {
    const auto run = [](const char* name, const std::string& pages, int count,
                        const std::string& links) {
        return CatcherRow{
            name, address, {page, pages}, collecting(count) + "pane " + links + "\nketqua=\n"};
    };
    expectEffects(
        &Form1::ComicVuiLen,
        {run("three, with bytes as they are",
             "<page> p1.jpg </page>\r\n<page> '><script>\x01\xFF </page><page> p3.jpg </page>", 3,
             link("p1.jpg", 1) + link("'><script>\x01\xFF", 2) + link("p3.jpg", 3)),
         run("an end without blank does not end", "<page> a</page><page> b </page>", 1,
             link("a</page><page> b", 1))});
}

TEST(ComicVuiLenTest, ReportsEachFailure) {
    const std::string red = redLine("Download Failed !");
    const auto pages = [&](const std::string& text, int count = 0) {
        return CatcherRow{text, address, {page, text}, collecting(count) + red};
    };
    const std::string elsewhere = "http://a/reader.html";
    expectEffects(
        &Form1::ComicVuiLen,
        {{"failed fetch", address, {failure}, start + red},
         {"no frame", address, {"<iframe src='a/index.php'></iframe>"}, start + red},
         {"no reader", address, {frame(elsewhere)}, start + "link2=" + elsewhere + "\n" + red},
         {"failed second fetch", address, {page, failure}, untilConfig + red},
         pages("no pages"),
         pages("<page> a"),
         pages(" </page><page> a"),
         pages("<page> a </page> </page>", 1)});
}

}  // namespace
}  // namespace velvox::testing
