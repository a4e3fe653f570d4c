#include <gtest/gtest.h>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {
namespace {

const std::string start =
    "outer.Top=600\n"
    "outer.Visible True\n"
    "navigate about:blank\n"
    "pane <font face='tahoma' size='2'>Please wait...</font>\n"
    "isButton1.Enabled False\n"
    "ketqua=\n";
const std::string end = "isButton1.Enabled True\n";
const std::string refused = end + "exclamation Please Enter A Valid URL...\nouter.Visible False\n";

/// The effects of a catcher alone, without those of the Download button.
std::string effectsOf(void (Form1::*catcher)(), const std::string& address) {
    return Form1Fixture().run(catcher, address);
}

std::string download(const std::string& address) {
    return Form1Fixture().run(&Form1::UniXPButton1_Click, address);
}

TEST(DownloadTest, RefusesWhatMatchesNoPattern) {
    for (const char* address :
         {"", "http://WWW.YOUTUBE.COM/watch?v=abc", "http://www.youtube.com/Watch?v=abc",
          "http://video.google.com/videoplay?docid=-1234567890123456789",
          "http://comic.vuilen.com/view_book_detail.php?chapterid=354"})
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
        {"http://www.metacafe.com/watch/983094/?u=http://www.youtube.com/watch?v=abc",
         {&Form1::YoutubeCatcher, &Form1::MetaCafe}},
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
    fixture.form.linkin.Text("youtube.com/watch?v=a");
    fixture.log.take();
    EXPECT_THROW(fixture.form.UniXPButton1_Click(), RuntimeFailure);
    EXPECT_EQ(fixture.log.take(), "outer.Top=600\nouter.Visible True\nnavigate about:blank\n");

    fixture.browser.refusing = false;
    EXPECT_EQ(fixture.run(&Form1::UniXPButton1_Click, ""),
              start.substr(start.find("outer.Visible")) + refused);
}

class ComicYieldTest : public ::testing::Test {
 protected:
    ComicYieldTest() {
        fixture.desktop.onYield = [this] {
            if (const auto event = std::exchange(atFirstYield, {})) event();
        };
    }

    static std::string images(int from) {
        std::string list;
        for (std::string n = std::to_string(from); n != "4"; ++n[0])
            list += "<font face='tahoma' size='2'><a href='b/" + n + "'>Download Image " + n +
                    "<a></font><br>";
        return list;
    }

    /// Effects from the first page's yield on.
    std::string run() {
        const std::string frame = "FRAMEBORDER='0' src='b/index.php'></iframe>";
        const std::string pages = "<page> 1 </page><page> 2 </page><page> 3 </page>";
        const std::string effects =
            fixture.run(&Form1::UniXPButton1_Click, "vuilen.com/view_book_detail.php?bookid=42",
                        {frame, pages, frame, pages});
        return effects.substr(effects.find("yield\n"));
    }

    Form1Fixture fixture;
    std::function<void()> atFirstYield;
};

// The inner run shows its whole list and empties the collector that both share: the outer run goes
// on with its second page and shows what it has collected since.
TEST_F(ComicYieldTest, SecondDownloadRunsToItsEndInside) {
    atFirstYield = [this] { fixture.form.UniXPButton1.activate(); };
    const std::string address = "vuilen.com/view_book_detail.php?bookid=42";
    EXPECT_EQ(run(), "yield\n" + start.substr(start.find("outer.Visible")) +
                         "pane <font face='tahoma' size='2'>Connecting...</font>\n"
                         "linkin.Enabled False\nfetch " +
                         address +
                         "\nlink2=b/index.php\nlink2=b/config.xml\nfetch b/config.xml\nketqua=\n"
                         "yield\nyield\nyield\npane " +
                         images(1) + "\nketqua=\n" + end + "yield\nyield\npane " + images(2) +
                         "\nketqua=\n" + end);
}

TEST_F(ComicYieldTest, TheRunGoesOnWhateverTheButtonsDo) {
    atFirstYield = [this] {
        fixture.form.isButton1.activate();  // disabled during a run
        fixture.form.isButton1_Click();
        fixture.form.isButton2.activate();
    };
    EXPECT_EQ(run(), "yield\nnavigate about:blank\nouter.Visible False\nend\nyield\nyield\npane " +
                         images(1) + "\nketqua=\n" + end);
}

TEST_F(ComicYieldTest, FailureInAYieldEndsTheRunInItsRedLine) {
    atFirstYield = [] { throw RuntimeFailure(Fault::Platform, "no more"); };
    EXPECT_EQ(run(),
              "yield\nlinkin.Enabled True\n"
              "pane <font face='tahoma' size='2' color='red'>Download Failed !</font>\n" +
                  end);
}

}  // namespace
}  // namespace velvox::testing
