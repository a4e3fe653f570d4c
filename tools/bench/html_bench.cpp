// Measures the result pane's work on an HTML fragment without the rich edit control: parsing the
// HTML and writing the rich text. The input "links" is the output of a catcher with many files,
// "text" is a page's words, "page" a whole page's source, and "open" has tags that never end.
#include <benchmark/benchmark.h>

#include "app/pane/html_fragment.h"
#include "app/pane/rich_text.h"
#include "tests/metrics/pages.h"

namespace velvox::testing {
namespace {

struct Filling {
    const char* name;
    std::string_view piece;  ///< repeated to fill the text; empty for a whole page

    std::string text(std::int64_t size) const {
        const auto megabytes = static_cast<std::size_t>(size);
        return piece.empty() ? ordinaryPage(megabytes) : filled(piece, megabytes);
    }
};

constexpr Filling fillings[] = {
    {"links",
     "<font face='tahoma' size='2'><a href='http://a/b/c.jpg'>Download Image 1<a></font><br>"},
    {"text", "A title, of words (3:14) &amp; more words, in a line that goes on and on. "},
    {"page", ""},
    {"open", "<a href='<b "},
};

void runParser(benchmark::State& state, const Filling& filling) {
    const std::string html = filling.text(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(parseHtmlFragment(html));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(html.size()));
}

void runStream(benchmark::State& state, const Filling& filling) {
    const std::string html = filling.text(state.range(0));
    const HtmlFragment fragment = parseHtmlFragment(html);
    for (auto _ : state) benchmark::DoNotOptimize(toRichText(fragment, {}));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(html.size()));
}

/// Runs a benchmark with inputs of 1, 4 and 16 megabytes.
void overSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);
}

const bool registered = [] {
    for (const Filling& filling : fillings) {
        overSizes(benchmark::RegisterBenchmark(("parse/" + std::string(filling.name)).c_str(),
                                               runParser, filling));
        overSizes(benchmark::RegisterBenchmark(("stream/" + std::string(filling.name)).c_str(),
                                               runStream, filling));
    }
    return true;
}();

}  // namespace
}  // namespace velvox::testing
