// The fuzz targets. Each takes any bytes, and aborts with a reason if the program does not do what
// it must do for all bytes. The tests replay the corpus with the same functions.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace velvox::fuzz {

using Target = void(std::string_view input);

Target youtube, clip, sevenload, veoh, metacafe, comic, google;
Target button, dispatch, links, bag, text, html, http_address, location, navigation,
    scroll_geometry, ticker;

/// The corpus file that is being replayed, for the report.
inline std::string replayed;

/// Aborts the program unless `holds`. Fuzzers and tests report that.
inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s %s\n", what, replayed.c_str());
    std::abort();
}

/// The parts of an input that lines of "%%" separate.
inline std::vector<std::string> sections(std::string_view input) {
    constexpr std::string_view separator = "\n%%\n";
    std::vector<std::string> parts;
    for (auto at = input.find(separator); at != input.npos; at = input.find(separator)) {
        parts.emplace_back(input.substr(0, at));
        input.remove_prefix(at + separator.size());
    }
    parts.emplace_back(input);
    return parts;
}

}  // namespace velvox::fuzz
