// The fuzz targets: each takes any bytes and aborts with a reason where the program does not do
// what a slow, obvious reading of them says. The same functions replay the corpus in the tests.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace velvox::fuzz {

void youtube(std::string_view input);
void clip(std::string_view input);
void sevenload(std::string_view input);
void veoh(std::string_view input);
void metacafe(std::string_view input);
void comic(std::string_view input);
void google(std::string_view input);
void dispatch(std::string_view input);
void links(std::string_view input);
void bag(std::string_view input);
void text(std::string_view input);
void http_address(std::string_view input);
void html(std::string_view input);

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
