// The gallery of the controls: each page opens with its controls, and the program ends.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

TEST(GalleryTest, EachPageOpensWithItsControls) {
    const std::string window = "VelvoxGallery", list = window + "/ListBox";
    Process gallery({paths::wine(), paths::program("gallery/velvox-gallery.exe")});
    driver().waitVisible(window);
    EXPECT_TRUE(eventually([&] { return driver().focus(window) == driver().ask({"find", list}); }));
    const int pages = std::stoi(driver().ask({"send", list, "0x18B", "0", "0"}));  // LB_GETCOUNT
    EXPECT_EQ(pages, 10);
    std::set<std::string> seen;  // the pages' windows without their handles
    for (int page = 0; page < pages; ++page) {
        SCOPED_TRACE(page);
        driver().ask({"send", list, "0x186", std::to_string(page), "0"});       // LB_SETCURSEL
        driver().ask({"send", window, "0x111", std::to_string(0x10001), "0"});  // LBN_SELCHANGE
        const std::string tree = driver().ask({"tree", window + "/GalleryPage"});
        EXPECT_NE(tree.find("\n"), tree.npos) << "nothing on it: " << tree;
        EXPECT_TRUE(driver().visible(window + "/GalleryPage"));
        seen.insert(std::regex_replace(tree, std::regex("0x[0-9a-f]+"), ""));
        EXPECT_FALSE(driver().holds({"find", "#32770"})) << driver().text("#32770/@65535");
        driver().ping(window);
    }
    EXPECT_GE(seen.size(), 8U) << "some differ in their colours alone";
    driver().ask({"close", window});
    EXPECT_EQ(gallery.exitWithin(Driver::patience), 0);
}

}  // namespace
}  // namespace velvox::e2e
