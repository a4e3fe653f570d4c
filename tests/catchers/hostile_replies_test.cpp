// Replies that are larger, fuller or more broken than any site's: the catchers end, and in a time
// that grows with the reply, not with its square.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

const std::string clipAddress = "http://www.clip.vn/watch/VjW,x";
const std::string sevenloadAddress = "http://en.sevenload.com/videos/AbCdEfG";
const std::string veohAddress = "http://www.veoh.com/videos/v1?";
const std::string frame = "FRAMEBORDER='0' src='b/index.php'></iframe>";
const std::string session = "fo.addVariable(sess,x);";
const std::string docid = "-1234567890123456789";

struct Attack {
    const char* name;
    void (Form1::*catcher)();
    std::string address;
    std::function<std::vector<Reply>(std::size_t)> replies;  ///< of about so many bytes
    const char* shown;                                       ///< a part of what is shown at the end
};

std::vector<Attack> attacks() {
    const auto filling = [](const std::string& piece, const std::string& end,
                            std::vector<Reply> before = {}, std::vector<Reply> after = {}) {
        return [=](std::size_t size) {
            std::vector<Reply> all = before;
            all.emplace_back(repeated(piece, size / piece.size()) + end);
            all.insert(all.end(), after.begin(), after.end());
            return all;
        };
    };
    const std::string address = "a=b";
    const auto youtube = &Form1::YoutubeCatcher;
    const auto clip = &Form1::ClipVNCatcher;
    const auto sevenload = &Form1::SevenLoad;
    const auto veoh = &Form1::veOH;
    const auto comic = &Form1::ComicVuiLen;
    const auto google = &Form1::GoogleCatcher;
    return {
        {"error text less its last letter", youtube, address, filling("contained a malforme", ""),
         "Getting Preview"},
        {"enclosures, one file", clip, clipAddress, filling("<enclosure url=", ".flv"), "Clip 1<"},
        {"files, then an enclosure", clip, clipAddress, filling(".flv", "<enclosure url="),
         "Unavilable.."},
        {"blanks", sevenload, sevenloadAddress, filling(" ", session, {}, {"url=\".flv"}), ".flv"},
        {"sessions without end", sevenload, sevenloadAddress, filling("fo.addVariable(sess,", ""),
         "Unavilable..."},
        {"addresses less their quote", sevenload, sevenloadAddress,
         filling("url=", "url=\".flv", {session}), ".flv"},
        {"markers without line end", veoh, veohAddress, filling("fullPreviewHashPath=", ""),
         "Failed"},
        {"line ends", veoh, veohAddress, filling("\r\n", "fullPreviewHashPath=\"a\" \r\n"), "'a'"},
        {"frames without end", comic, address, filling("FRAMEBORDER='0' src='", ""), "Failed"},
        {"pages, one end", comic, address, filling("<page> ", " </page>", {frame}), "Image 1<"},
        {"ends before a page", comic, address,
         [](std::size_t size) {
             return std::vector<Reply>{
                 frame, repeated(" </page>", std::min(size / 8, {32000})) + "<page> a </page>"};
         },
         "Failed"},
        {"names less their end", google, "docid=" + docid,
         filling("http://video.google.com/videogv", "", {}, {""}), ""},
        {"servers without video", google, "docid=" + docid,
         filling("http://vp.video.google.com", "", {""}), ""},
    };
}

TEST(HostileRepliesTest, EachEndsInTimeThatGrowsWithTheReply) {
    constexpr std::size_t small = 1U << 14;
    constexpr std::size_t growth = 32;
    const auto timeOf = [](const Attack& attack, std::size_t size) {
        Milliseconds best = Milliseconds::max();
        for (int i = 0; i < 2; ++i) {
            Form1Fixture fixture;
            fixture.log.recording = false;
            fixture.form.linkin.Text(attack.address);
            const auto replies = attack.replies(size);
            fixture.transfer.replies.assign(replies.begin(), replies.end());
            const auto start = std::chrono::steady_clock::now();
            (fixture.form.*attack.catcher)();
            best = std::min<Milliseconds>(best, std::chrono::steady_clock::now() - start);
            EXPECT_NE(fixture.pane.shown.find(attack.shown), std::string::npos)
                << fixture.pane.shown.substr(0, 200);
        }
        return best;
    };
    for (const Attack& attack : attacks()) {
        SCOPED_TRACE(attack.name);
        // A square would be 1024 times as long.
        EXPECT_LT(timeOf(attack, growth * small),
                  6 * growth * timeOf(attack, small) + Milliseconds(50));
    }
}

/// Whole run of the comic book: what is shown at the end, and how long it took.
std::pair<std::string, Milliseconds> read(std::size_t pages) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    fixture.form.linkin.Text("x");
    fixture.transfer.replies = {frame, repeated("<page> p.jpg </page>\r\n", pages)};
    const auto start = std::chrono::steady_clock::now();
    fixture.form.ComicVuiLen();
    return {fixture.pane.shown, std::chrono::steady_clock::now() - start};
}

// The number of pages is kept in 16 bits.
TEST(HostileRepliesTest, ComicBookHoldsAtMost32767Pages) {
    const auto [most, time] = read(32'767);
    EXPECT_TRUE(most.ends_with("Download Image 32767<a></font><br>"));
    EXPECT_LT(time, 40 * std::max(read(1'024).second, Milliseconds(1)) * 6);
    for (const std::size_t pages : {32'768U, 65'537U})
        EXPECT_EQ(read(pages).first,
                  "<font face='tahoma' size='2' color='red'>Download Failed !</font>");
}

TEST(HostileRepliesTest, AddressOfMegabytes) {
    const std::string address = repeated("/watch/ /videos/ docid=,?=", 40'000);
    for (const auto catcher :
         {&Form1::YoutubeCatcher, &Form1::ClipVNCatcher, &Form1::SevenLoad, &Form1::veOH,
          &Form1::MetaCafe, &Form1::ComicVuiLen, &Form1::UniXPButton1_Click}) {
        Form1Fixture fixture;
        fixture.log.recording = false;
        fixture.form.linkin.Text(address);
        fixture.transfer.replies = {session, "url=\".flv"};
        (fixture.form.*catcher)();
        EXPECT_FALSE(fixture.pane.shown.empty());
        fixture.browser.location = "metacafe.com/f/youtube.com/" + address;
        fixture.form.web_DocumentComplete();
    }
}

}  // namespace
}  // namespace velvox::testing
