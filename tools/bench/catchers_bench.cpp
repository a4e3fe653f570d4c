// Bytes a second of each catcher beside one memchr pass and one copy of the same bytes. A page has
// its markers at its very end. "page" is filled with ordinary markup, "letters" with the first
// letter of the marker that is searched for, "near" with that marker less its last letter, over and
// over.
#include <benchmark/benchmark.h>

#include <cstring>

#include "tests/app/form1/form1_fixture.h"
#include "tools/bench/filled.h"

namespace velvox::testing {
namespace {

struct Subject {
    const char* name;
    void (Form1::*catcher)();
    std::string address;
    std::string_view marker;    ///< the first that is searched for in the large page
    std::string end;            ///< of the large page
    std::vector<Reply> before;  ///< replies before the large page
    std::vector<Reply> after;
};

const std::string docid = "-1234567890123456789";
const std::string hashLine = "fullPreviewHashPath=\"http://a/b.flv\" \r\n";

const Subject subjects[] = {
    {"Youtube", &Form1::YoutubeCatcher, "a=b", "contained a malformed", "", {}, {}},
    {"ClipVN",
     &Form1::ClipVNCatcher,
     "http://www.clip.vn/watch/VjW,x",
     "<enclosure url=",
     "<enclosure url=\"http://a/b.flv\"/>",
     {},
     {}},
    {"SevenLoad",
     &Form1::SevenLoad,
     "http://en.sevenload.com/videos/AbCdEfG",
     "fo.addVariable(sess,",
     "fo.addVariable(\"sess\", \"x1y2\");",
     {},
     {"url=\"http://a/b.flv\""}},
    {"SevenLoad reply",
     &Form1::SevenLoad,
     "http://en.sevenload.com/videos/AbCdEfG",
     "url=\"",
     "url=\"http://a/b.flv\"",
     {"fo.addVariable(\"sess\", \"x1y2\");"},
     {}},
    {"veOH",
     &Form1::veOH,
     "http://www.veoh.com/videos/v1?",
     "fullPreviewHashPath=",
     "fullPreviewHashPath=\"http://a/b.flv\" \r\nipodLink=\"http://a/b.mp4\" \r\n",
     {},
     {}},
    {"ComicVuiLen",
     &Form1::ComicVuiLen,
     "x",
     "FRAMEBORDER='0' src='",
     "FRAMEBORDER='0' src='b/index.php'></iframe>",
     {},
     {"<page> p </page>"}},
    {"Google",
     &Form1::GoogleCatcher,
     "docid=" + docid,
     "http://video.google.com/videogvp/",
     "http://video.google.com/videogvp/abc.gvp?docid=",
     {},
     {""}},
};

enum Filling { Page, Letters, Near };

void runCatcher(benchmark::State& state, const Subject& subject, Filling filling) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    const std::string_view marker = subject.marker;
    const std::string page =
        (filling == Page      ? ordinaryPage(state.range(0))
         : filling == Letters ? filled(marker.substr(0, 1), state.range(0))
                              : filled(marker.substr(0, marker.size() - 1), state.range(0))) +
        subject.end;
    for (auto _ : state) {
        state.PauseTiming();
        fixture.form.linkin.Text(subject.address);
        fixture.transfer.replies.assign(subject.before.begin(), subject.before.end());
        fixture.transfer.replies.emplace_back(page);
        for (const Reply& reply : subject.after) fixture.transfer.replies.push_back(reply);
        state.ResumeTiming();
        (fixture.form.*subject.catcher)();
    }
    if (fixture.pane.shown.find("color='red'") != std::string::npos) state.SkipWithError("failed");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}

/// The number in the address is all that this catcher reads, so the address is the large text.
void runMetaCafe(benchmark::State& state) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    fixture.form.linkin.Text(ordinaryPage(state.range(0)) + "/watch/612285/");
    for (auto _ : state) fixture.form.MetaCafe();
    state.SetBytesProcessed(state.iterations() *
                            static_cast<std::int64_t>(fixture.form.linkin.Text().size()));
}

void runMemchr(benchmark::State& state) {
    const std::string page = ordinaryPage(state.range(0));
    for (auto _ : state) {
        const char* data = page.data();
        benchmark::DoNotOptimize(data);
        benchmark::DoNotOptimize(std::memchr(data, '\x01', page.size()));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}

void runCopy(benchmark::State& state) {
    const std::string page = ordinaryPage(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(std::string(page).data());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}

/// Links of a feed that is nothing but enclosures, or pages of a comic book.
void runClipFeed(benchmark::State& state) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    fixture.form.linkin.Text("http://www.clip.vn/watch/VjW,x");
    const std::string feed =
        filled("<enclosure url=\"http://a/clip.flv\" type=\"video/x-flv\"/>\n", state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        fixture.transfer.replies.emplace_back(feed);
        state.ResumeTiming();
        fixture.form.ClipVNCatcher();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(feed.size()));
}

void runComicBook(benchmark::State& state) {
    Form1Fixture fixture;
    fixture.log.recording = false;
    std::string book;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        book += "  <page> pages/" + std::to_string(i) + ".jpg </page>\r\n";
    for (auto _ : state) {
        state.PauseTiming();
        fixture.transfer.replies.emplace_back("FRAMEBORDER='0' src='b/index.php'></iframe>");
        fixture.transfer.replies.emplace_back(book);
        state.ResumeTiming();
        fixture.form.ComicVuiLen();
    }
    if (fixture.pane.shown.find("color='red'") != std::string::npos) state.SkipWithError("failed");
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(book.size()));
}

const bool registered = [] {
    overSizes(benchmark::RegisterBenchmark("memchr", runMemchr));
    overSizes(benchmark::RegisterBenchmark("copy", runCopy));
    constexpr std::pair<Filling, const char*> fillings[] = {
        {Page, "/page"}, {Letters, "/letters"}, {Near, "/near"}};
    for (const Subject& subject : subjects)
        for (const auto& [filling, suffix] : fillings)
            overSizes(benchmark::RegisterBenchmark((std::string(subject.name) + suffix).c_str(),
                                                   runCatcher, subject, filling));
    overSizes(benchmark::RegisterBenchmark("MetaCafe/address", runMetaCafe));
    overSizes(benchmark::RegisterBenchmark("ClipVN/enclosures", runClipFeed));
    benchmark::RegisterBenchmark("ComicVuiLen/pages", runComicBook)
        ->Arg(8'000)
        ->Arg(16'000)
        ->Arg(32'000)
        ->Unit(benchmark::kMillisecond);
    return true;
}();

}  // namespace
}  // namespace velvox::testing
