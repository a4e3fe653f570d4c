#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://comic.vuilen.com/view_book_detail.php?bookid=42";
const std::string start =
    "pane <font face='tahoma' size='2'>Connecting...</font>\n"
    "linkin.Enabled False\n"
    "fetch " +
    address + "\n";
const std::string red =
    "linkin.Enabled True\n"
    "pane <font face='tahoma' size='2' color='red'>Download Failed !</font>\n";

std::string frame(const std::string& source) {
    return "<IFRAME FRAMEBORDER='0' src='" + source + "'></iframe>";
}

std::string config(const std::string& source, const std::string& base) {
    return start + "link2=" + source + "\nlink2=" + base + "config.xml\nfetch " + base +
           "config.xml\n";
}

const std::string book = "http://a/books/abc/";
const std::string reader = book + "index.php?x=1";

std::string link(const std::string& url, int number) {
    return "<font face='tahoma' size='2'><a href='" + url + "'>Download Image " +
           std::to_string(number) + "<a></font><br>";
}

TEST(ComicVuiLenTest, NumbersEveryPageAndLeavesTheBoxDisabled) {
    const auto run = [](const char* name, const std::string& pages, int count,
                        const std::string& links) {
        std::string yields;
        for (int i = 0; i < count; ++i) yields += "yield\n";
        return CatcherRow{
            name,
            address,
            {frame(reader), pages},
            config(reader, book) + "ketqua=\n" + yields + "pane " + links + "\nketqua=\n"};
    };
    expectEffects(
        &Form1::ComicVuiLen,
        {run("three", "<page> p1.jpg </page>\r\n<page> p2.jpg </page><page> p3.jpg </page>", 3,
             link(book + "p1.jpg", 1) + link(book + "p2.jpg", 2) + link(book + "p3.jpg", 3)),
         run("an end without blank does not end", "<page> a</page><page> b </page>", 1,
             link(book + "a</page><page> b", 1)),
         run("bytes as they are", "<page> '><script>\x01\xFF </page>", 1,
             link(book + "'><script>\x01\xFF", 1))});
}

TEST(ComicVuiLenTest, TakesTheFolderOfTheFrame) {
    const auto run = [](const std::string& page, const std::string& source,
                        const std::string& base) {
        return CatcherRow{
            page,
            address,
            {page, "<page> p </page>"},
            config(source, base) + "ketqua=\nyield\npane " + link(base + "p", 1) + "\nketqua=\n"};
    };
    expectEffects(
        &Form1::ComicVuiLen,
        {run("x" + frame(reader) + "y", reader, book),
         run(frame("index.php/index.php"), "index.php/index.php", ""),
         run("'></iframe>" + frame("a/index.php") + frame("b/index.php"), "a/index.php", "a/")});
}

TEST(ComicVuiLenTest, ReportsEachFailure) {
    const auto pages = [](const std::string& text, int yields = 0) {
        std::string effects = config(reader, book) + "ketqua=\n";
        for (int i = 0; i < yields; ++i) effects += "yield\n";
        return CatcherRow{text, address, {frame(reader), text}, effects + red};
    };
    const std::string elsewhere = "http://a/reader.html";
    expectEffects(
        &Form1::ComicVuiLen,
        {{"failed fetch", address, {failure}, start + red},
         {"no frame", address, {"<iframe src='a/index.php'></iframe>"}, start + red},
         {"no reader", address, {frame(elsewhere)}, start + "link2=" + elsewhere + "\n" + red},
         {"failed second fetch", address, {frame(reader), failure}, config(reader, book) + red},
         pages("no pages"),
         pages("<page> a"),
         pages(" </page><page> a"),
         pages("<page> a </page> </page>", 1),
         pages(" </page><page> a </page>", 1)});
}

}  // namespace
}  // namespace velvox::testing
