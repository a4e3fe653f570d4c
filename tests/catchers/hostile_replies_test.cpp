// Replies that are larger or more malformed than those of any site. The catchers must end, in a
// time that is proportional to the reply and not to its square.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {
namespace {

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

const std::string frame = "FRAMEBORDER='0' src='b/index.php'></iframe>";
const std::string session = "fo.addVariable(sess,x);";

// An address that every catcher accepts.
const std::string address =
    "http://www.clip.vn/watch/VjW,/videos/AbCdEfG?docid=-1234567890123456789";

struct Attack {
    const char* name;
    void (Form1::*catcher)();
    const char* shown;  ///< part of the text in the pane at the end
    std::string piece;
    std::vector<std::string> replies;  ///< a "*" in front is replaced by many copies of `piece`
};

const Attack attacks[] = {
    {"error text cut short", &Form1::YoutubeCatcher, "Preview", "contained a malforme", {"*"}},
    {"a full feed", &Form1::ClipVNCatcher, "Clip ", "<enclosure url=\"a.flv\">", {"*"}},
    {"enclosures, one file", &Form1::ClipVNCatcher, "Clip 1<", "<enclosure url=", {"*.flv"}},
    {"files, one enclosure", &Form1::ClipVNCatcher, "Unavilable", ".flv", {"*<enclosure url="}},
    {"blanks", &Form1::SevenLoad, ".flv", " ", {"*" + session, "url=\".flv"}},
    {"sessions without end", &Form1::SevenLoad, "Unavilable", "fo.addVariable(sess,", {"*"}},
    {"addresses less a quote", &Form1::SevenLoad, ".flv", "url=", {session, "*url=\".flv"}},
    {"markers without line end", &Form1::veOH, "Failed", "fullPreviewHashPath=", {"*"}},
    {"line ends", &Form1::veOH, "'a'", "\r\n", {"*fullPreviewHashPath=\"a\" \r\n"}},
    {"frames without end", &Form1::ComicVuiLen, "Failed", "FRAMEBORDER='0' src='", {"*"}},
    {"a book", &Form1::ComicVuiLen, "Image 744<", "<page> p.jpg </page>\r\n", {frame, "*"}},
    {"pages, one end", &Form1::ComicVuiLen, "Image 1<", "<page> ", {frame, "* </page>"}},
    {"names cut short", &Form1::GoogleCatcher, "", "http://video.google.com/videogv", {"*", ""}},
    {"servers without video", &Form1::GoogleCatcher, "", "http://vp.video.google.com", {"", "*"}},
};

/// Runs a catcher and returns its processor time in seconds, which other programs do not affect.
double timeOf(Form1Fixture& fixture, void (Form1::*catcher)(),
              const std::vector<std::string>& replies) {
    fixture.log.recording = false;
    fixture.form.linkin.Text(address);
    fixture.transfer.replies.assign(replies.begin(), replies.end());
    const std::clock_t start = std::clock();
    (fixture.form.*catcher)();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(HostileRepliesTest, EachEndsInTimeThatGrowsWithTheReply) {
    constexpr std::size_t small = 1U << 14;
    constexpr std::size_t growth = 32;
    const auto best = [](const Attack& attack, std::size_t size) {
        std::vector<std::string> replies = attack.replies;
        for (std::string& reply : replies)
            if (reply.starts_with('*'))
                reply.replace(0, 1, repeated(attack.piece, size / attack.piece.size()));
        Form1Fixture first, second;
        const auto time = std::min(timeOf(first, attack.catcher, replies),
                                   timeOf(second, attack.catcher, replies));
        EXPECT_NE(first.pane.shown.find(attack.shown), std::string::npos) << attack.shown;
        return time;
    };
    for (const Attack& attack : attacks) {
        SCOPED_TRACE(attack.name);
        // Quadratic time would be 1024 times as long.
        EXPECT_LT(best(attack, growth * small), 6 * growth * best(attack, small) + 0.5);
    }
}

// A player's address of the maximum length, in which the part to replace nearly matches almost
// everywhere.
TEST(HostileRepliesTest, LongAddressIsRewrittenQuickly) {
    const std::string part = std::string(16'000, 'a') + "ba";
    Form1Fixture fixture;
    fixture.browser.location = "youtube.com/" + part + "?video_id=" + std::string(49'500, 'a');
    const std::clock_t start = std::clock();
    fixture.browser.DocumentComplete();
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, 0.5);
    EXPECT_NE(fixture.pane.shown.find("youtube.com/get_video?"), std::string::npos);
}

// The number of pages is kept in 16 bits.
TEST(HostileRepliesTest, ComicBookHoldsAtMost32767Pages) {
    const auto lastShown = [](std::size_t pages) {
        Form1Fixture fixture;
        timeOf(fixture, &Form1::ComicVuiLen, {frame, repeated("<page> p.jpg </page>", pages)});
        return fixture.pane.shown;
    };
    EXPECT_TRUE(lastShown(32'767).ends_with("Download Image 32767<a></font><br>"));
    for (const std::size_t pages : {32'768U, 65'537U})
        EXPECT_EQ(lastShown(pages).substr(0, 100),
                  "<font face='tahoma' size='2' color='red'>Download Failed !</font>");
}

// The text of the links is bounded, and the next run releases its memory.
TEST(HostileRepliesTest, LinksThatWouldFillTheMemoryFail) {
    const std::string pages = repeated("<page> p </page>", 5'000);
    const std::string folder(1U << 14, 'b');
    const std::string farFrame = "FRAMEBORDER='0' src='" + folder + "index.php'></iframe>";
    const struct {
        void (Form1::*catcher)();
        std::vector<std::string> replies;
        const char* shown;
    } rows[] = {
        {&Form1::ComicVuiLen, {farFrame, pages}, "Download Failed !"},
        {&Form1::ClipVNCatcher, {repeated("<enclosure url=.flv", 1'000'000)}, "Unavilable"},
    };
    for (const auto& [catcher, replies, shown] : rows) {
        Form1Fixture fixture;
        timeOf(fixture, catcher, replies);
        EXPECT_NE(fixture.pane.shown.substr(0, 100).find(shown), std::string::npos) << shown;
        EXPECT_LE(fixture.form.ketqua.Text().capacity(), HiddenText::maxBytes);
        fixture.form.UniXPButton1_Click();
        EXPECT_LT(fixture.form.ketqua.Text().capacity(), 1'000U);
    }
}

}  // namespace
}  // namespace velvox::testing
