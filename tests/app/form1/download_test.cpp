#include <gtest/gtest.h>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {
namespace {

const std::string start =
    "outer.Top=600\nouter.Visible True\nnavigate about:blank\n"
    "pane <font face='tahoma' size='2'>Please wait...</font>\nisButton1.Enabled False\nketqua=\n";
const std::string end = "isButton1.Enabled True\n";
const std::string refused = end + "exclamation Please Enter A Valid URL...\nouter.Visible False\n";

/// The effects of a catcher or of the button's handler.
std::string effectsOf(void (Form1::*handler)(), const std::string& address) {
    return Form1Fixture().run(handler, address);
}

std::string download(const std::string& address) {
    return effectsOf(&Form1::UniXPButton1_Click, address);
}

TEST(DownloadTest, RefusesWhatMatchesNoPattern) {
    for (const char* address :
         {"", "http://WWW.YOUTUBE.COM/watch?v=abc", "http://www.youtube.com/Watch?v=abc",
          "http://video.google.com/videoplay?docid=-1234567890123456789",
          "http://comic.vuilen.com/view_book_detail.php?chapterid=354",
          "http://www.metacafe.com/watch"})
        EXPECT_EQ(download(address), start + refused) << address;
}

TEST(DownloadTest, CallsTheCatcherOfEachPatternInOrder) {
    const struct {
        std::string address;
        std::vector<void (Form1::*)()> catchers;
    } rows[] = {
        {"http://www.youtube.com/watch?v=Yp5O8Koe_A4", {&Form1::YoutubeCatcher}},
        {"clip.vn/watch/x", {&Form1::ClipVNCatcher}},
        {"http://en.sevenload.com/videos", {&Form1::SevenLoad}},
        {"http://www.veoh.com/videos/v1?", {&Form1::veOH}},
        {"http://www.metacafe.com/watch/983094/dog_singing_hippo/", {&Form1::MetaCafe}},
        {"comic.vuilen.com/view_book_detail.php?bookid=", {&Form1::ComicVuiLen}},
        {"vuilen.com/view_book_detail.php?bookid=/metacafe.com/watch/veoh.com/videos/"
         "sevenload.com/videosclip.vn/watch/youtube.com/watch?v=",
         {&Form1::YoutubeCatcher, &Form1::ClipVNCatcher, &Form1::SevenLoad, &Form1::veOH,
          &Form1::MetaCafe, &Form1::ComicVuiLen}},
    };
    for (const auto& row : rows) {
        std::string expected = start;
        for (const auto catcher : row.catchers) expected += effectsOf(catcher, row.address);
        EXPECT_EQ(download(row.address), expected + end) << row.address;
    }
}

TEST(DownloadTest, ReadsTheBoxAfreshForEachPattern) {
    const std::string next = "http://www.metacafe.com/watch/612285/";
    Form1Fixture fixture;
    fixture.transfer.onFetch = [&] { fixture.form.linkin.Text(next); };
    const std::string effects = fixture.run(&Form1::UniXPButton1_Click, "youtube.com/watch?v=a");
    EXPECT_TRUE(effects.ends_with(effectsOf(&Form1::MetaCafe, next) + end)) << effects;
}

TEST(DownloadTest, LetsAFailureOfItsOwnThrough) {
    Form1Fixture fixture;
    fixture.browser.refusing = true;
    EXPECT_THROW(fixture.run(&Form1::UniXPButton1_Click, "youtube.com/watch?v=a"), RuntimeFailure);
    EXPECT_EQ(fixture.log.take(), "outer.Top=600\nouter.Visible True\nnavigate about:blank\n");
    fixture.browser.refusing = false;
    EXPECT_EQ(fixture.run(&Form1::UniXPButton1_Click, ""),
              start.substr(start.find("outer.Visible")) + refused);
}

std::string images(std::initializer_list<const char*> numbers) {
    std::string list;
    for (const std::string n : numbers)
        list += "<font face='tahoma' size='2'><a href='b/" + n + "'>Download Image " + n +
                "<a></font><br>";
    return "pane " + list + "\nketqua=\n" + end;
}

/// The effects of a run for a comic book of three pages, from its first yield on. `event` happens
/// during that yield.
std::string runWith(const std::function<void(Form1&)>& event) {
    Form1Fixture fixture;
    fixture.desktop.onYield = [&] {
        fixture.desktop.onYield = nullptr;
        event(fixture.form);
    };
    const std::string frame = "FRAMEBORDER='0' src='b/index.php'></iframe>";
    const std::string pages = "<page> 1 </page><page> 2 </page><page> 3 </page>";
    const std::string effects =
        fixture.run(&Form1::UniXPButton1_Click, "vuilen.com/view_book_detail.php?bookid=42",
                    {frame, pages, frame, pages});
    return effects.substr(effects.find("yield\n"));
}

// Download pressed during a yield starts an inner run. It shows its whole list and clears the list
// of links, which it shares with the outer run. The outer run then continues with its second page
// and shows the links collected since.
TEST(ComicYieldTest, SecondDownloadRunsToItsEndInside) {
    EXPECT_EQ(runWith([](Form1& form) { form.UniXPButton1.activate(); }),
              "yield\n" + start.substr(start.find("outer.Visible")) +
                  "pane <font face='tahoma' size='2'>Connecting...</font>\n"
                  "linkin.Enabled False\n"
                  "fetch vuilen.com/view_book_detail.php?bookid=42\n"
                  "link2=b/index.php\nlink2=b/config.xml\nfetch b/config.xml\nketqua=\n"
                  "yield\nyield\nyield\n" +
                  images({"1", "2", "3"}) + "yield\nyield\n" + images({"2", "3"}));
}

TEST(ComicYieldTest, TheRunGoesOnWhateverTheButtonsDo) {
    const auto event = [](Form1& form) {
        form.isButton1.activate();  // the button is disabled during a run
        form.isButton1_Click();
        form.isButton2.activate();
    };
    EXPECT_EQ(runWith(event),
              "yield\nnavigate about:blank\nouter.Visible False\nend\nyield\nyield\n" +
                  images({"1", "2", "3"}));
}

}  // namespace
}  // namespace velvox::testing
