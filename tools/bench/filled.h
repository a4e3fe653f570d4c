// Large texts for the benchmarks.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace velvox::testing {

/// `piece` over and over, at least `megabytes` in all.
inline std::string filled(std::string_view piece, std::int64_t megabytes) {
    const std::size_t size = static_cast<std::size_t>(megabytes) << 20;
    std::string text;
    text.reserve(size + piece.size());
    while (text.size() < size) text += piece;
    return text;
}

/// Ordinary markup around words of changing length and letters, since a processor soon foretells
/// what only repeats itself. The same in every run.
inline std::string ordinaryPage(std::int64_t megabytes) {
    const std::size_t size = static_cast<std::size_t>(megabytes) << 20;
    std::minstd_rand random;
    const auto words = [&](std::string& text, std::uint_fast32_t count) {
        for (; count > 0; --count) {
            for (std::uint_fast32_t letters = 1 + random() % 10; letters > 0; --letters)
                text += static_cast<char>('a' + random() % 26);
            text += ' ';
        }
    };
    std::string text;
    text.reserve(size + 1024);
    while (text.size() < size) {
        text += "<div class=\"item\"><a href=\"/show?id=" + std::to_string(random());
        text += "&amp;page=2\">A title: ";
        words(text, random() % 8);
        text += "</a> (3:14, by <b>";
        words(text, 1 + random() % 2);
        text += "</b>)</div>\n";
    }
    return text;
}

/// A benchmark of three sizes in megabytes.
inline void overSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond);
}

}  // namespace velvox::testing
