// Large texts for measurements.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

namespace velvox::testing {

/// Repeats `piece` up to a size of at least `megabytes`.
inline std::string filled(std::string_view piece, std::size_t megabytes) {
    std::string text;
    text.reserve((megabytes << 20) + piece.size());
    while (text.size() < megabytes << 20) text += piece;
    return text;
}

/// Ordinary markup around words of random length and letters, because a processor soon predicts
/// repeated text. The page is the same in every run.
inline std::string ordinaryPage(std::size_t megabytes) {
    std::minstd_rand random;
    std::string text;
    text.reserve((megabytes << 20) + 1024);
    const auto words = [&](std::uint_fast32_t count) {
        for (; count > 0; --count) {
            for (std::uint_fast32_t letters = 1 + random() % 10; letters > 0; --letters)
                text += static_cast<char>('a' + random() % 26);
            text += ' ';
        }
    };
    while (text.size() < megabytes << 20) {
        text += "<div class=\"item\"><a href=\"/show?id=" + std::to_string(random());
        text += "&amp;page=2\">A title: ";
        words(random() % 8);
        text += "</a> (3:14, by <b>";
        words(1 + random() % 2);
        text += "</b>)</div>\n";
    }
    return text;
}

}  // namespace velvox::testing
