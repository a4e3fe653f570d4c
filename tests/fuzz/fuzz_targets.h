// The fuzz targets: each takes any bytes and aborts with a reason where the program breaks a
// promise that it makes for all bytes. The same functions replay the corpus in the tests.
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

/// Ends the program, which fuzzers and tests both report, unless `holds`.
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
