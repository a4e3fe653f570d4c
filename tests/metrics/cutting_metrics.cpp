// Measures the time that catchers take to cut links out of a page, in relation to one pass of
// memchr over the same bytes or to a copy of them. The input "page" is ordinary markup with the
// marker at its end. Four inputs are difficult for a search: "letters" repeats the first letter of
// the marker, "near" repeats the marker without its last letter, "middle" with another letter
// inside, and "ends" repeats its first and its last letter.
#include <cstring>

#include "tests/app/form1/form1_fixture.h"
#include "tests/metrics/metric.h"
#include "tests/metrics/pages.h"

namespace velvox::testing {
namespace {

constexpr int tries = 12;

struct Subject {
    const char* name;
    void (Form1::*catcher)();
    std::string address;
    std::string_view marker;  ///< first marker that is searched for in the large page
    std::string end;          ///< end of the large page
    double maxPasses = 3;
    std::vector<Reply> before = {};  ///< replies before the large page
    std::vector<Reply> after = {};
};

const Subject subjects[] = {
    {"Youtube", &Form1::YoutubeCatcher, "a=b", "contained a malformed", ""},
    {"ClipVN", &Form1::ClipVNCatcher, "http://www.clip.vn/watch/VjW,x",
     "<enclosure url=", "<enclosure url=\"http://a/b.flv\"/>"},
    {.name = "SevenLoad, rewritten",
     .catcher = &Form1::SevenLoad,
     .address = "http://en.sevenload.com/videos/AbCdEfG",
     .marker = "fo.addVariable(sess,",
     .end = "fo.addVariable(\"sess\", \"x1y2\");",
     .maxPasses = 6,
     .after = {"url=\"http://a/b.flv\""}},
    {.name = "SevenLoad's reply",
     .catcher = &Form1::SevenLoad,
     .address = "http://en.sevenload.com/videos/AbCdEfG",
     .marker = "url=\"",
     .end = "url=\"http://a/b.flv\"",
     .before = {"fo.addVariable(\"sess\", \"x1y2\");"}},
    {"veOH", &Form1::veOH, "http://www.veoh.com/videos/v1?", "fullPreviewHashPath=",
     "fullPreviewHashPath=\"http://a/b.flv\" \r\nipodLink=\"http://a/b.mp4\" \r\n"},
    {.name = "ComicVuiLen",
     .catcher = &Form1::ComicVuiLen,
     .address = "x",
     .marker = "FRAMEBORDER='0' src='",
     .end = "FRAMEBORDER='0' src='b/index.php'></iframe>",
     .after = {"<page> p </page>"}},
    {.name = "Google",
     .catcher = &Form1::GoogleCatcher,
     .address = "docid=-1234567890123456789",
     .marker = "http://video.google.com/videogvp/",
     .end = "http://video.google.com/videogvp/abc.gvp?docid=",
     .after = {""}},
};

struct Catch {
    double milliseconds;
    std::string shown;  ///< text of the pane at the end
};

/// Runs a catcher on replies several times and returns the fastest time.
Catch timeOf(void (Form1::*catcher)(), std::string_view address,
             const std::vector<Reply>& replies) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    const auto prepare = [&] {
        fixture.form.linkin.Text(address);
        fixture.transfer.replies.assign(replies.begin(), replies.end());
    };
    const double taken = fastest(tries, prepare, [&] { (fixture.form.*catcher)(); });
    EXPECT_EQ(fixture.pane.shown.find("color='red'"), std::string::npos) << fixture.pane.shown;
    return {taken, fixture.pane.shown};
}

double timeOf(const Subject& subject, std::string page) {
    std::vector<Reply> replies = subject.before;
    replies.emplace_back(std::move(page += subject.end));
    replies.insert(replies.end(), subject.after.begin(), subject.after.end());
    return timeOf(subject.catcher, subject.address, replies).milliseconds;
}

TEST(Cutting, TakesFewPassesOverAPage) {
    for (const std::size_t megabytes : {1U, 4U, 16U}) {
        const std::string page = ordinaryPage(megabytes);
        const void* volatile sink = nullptr;
        const double pass =
            fastest(tries, [&] { sink = std::memchr(page.data(), '\x01', page.size()); });
        const double copy = fastest(tries, [&] { sink = std::string(page).data(); });
        std::printf("%zu MB: memchr %.2f ms, a copy %.2f ms\n", megabytes, pass, copy);
        for (const Subject& subject : subjects)
            expectAtMost(std::string(subject.name) + ", MB: " + std::to_string(megabytes),
                         (timeOf(subject, page) - copy) / pass, subject.maxPasses, "passes");
    }
}

TEST(Cutting, TakesLittleLongerOnPagesMadeAgainstTheSearch) {
    constexpr std::size_t megabytes = 4;
    for (const Subject& subject : subjects) {
        const std::string_view marker = subject.marker;
        const std::string first(marker.size() - 1, marker.front());
        const std::string last(marker.size() - 1, marker.back());
        std::string middle(marker);
        middle[marker.size() / 3] = '#';
        const std::pair<const char*, std::string> rows[] = {
            {", letters", first},
            {", near", std::string(marker.substr(0, marker.size() - 1))},
            {", middle", middle},
            {", ends", first + last}};
        const double ordinary = timeOf(subject, ordinaryPage(megabytes));
        for (const auto& [name, piece] : rows)
            expectAtMost(subject.name + std::string(name),
                         timeOf(subject, filled(piece, megabytes)) / ordinary, 3);
    }
}

/// Compares the time with that of appending the same lines to a string.
void expectLoop(const char* name, const Catch& caught, std::string_view lineEnd) {
    std::vector<std::string_view> lines;
    for (std::string_view rest = caught.shown; !rest.empty();) {
        lines.push_back(rest.substr(0, rest.find(lineEnd) + lineEnd.size()));
        rest.remove_prefix(lines.back().size());
    }
    const double appending = fastest(tries, [&] {
        std::string all;
        for (const std::string_view line : lines) all.append(line);
    });
    std::printf("%s: %zu links, %.2f ms, appending %.2f ms\n", name, lines.size(),
                caught.milliseconds, appending);
    expectAtMost(name, caught.milliseconds / appending, 3);
}

TEST(Cutting, OfManyLinksCostsLittleMoreThanAppendingThem) {
    expectLoop("ClipVN, a feed of enclosures",
               timeOf(&Form1::ClipVNCatcher, "http://www.clip.vn/watch/VjW,x",
                      {filled("<enclosure url=\"http://a/clip.flv\" type=\"video/x-flv\"/>\n", 2)}),
               "<br></font>");
    std::string book;
    for (int i = 0; i < 32'000; ++i)
        book += "  <page> pages/" + std::to_string(i) + ".jpg </page>\r\n";
    expectLoop(
        "ComicVuiLen, 32,000 pages",
        timeOf(&Form1::ComicVuiLen, "x", {"FRAMEBORDER='0' src='b/index.php'></iframe>", book}),
        "<br>");
}

}  // namespace
}  // namespace velvox::testing
