// Tests and conversions of ASCII characters, independent of the locale.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace velvox::ascii {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}

inline std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), lower);
    return result;
}

constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

constexpr bool startsWithIgnoringCase(std::string_view text, std::string_view prefix) {
    return equalIgnoringCase(text.substr(0, prefix.size()), prefix);
}

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// `text` without leading and trailing blanks, by default spaces, tabs and line ends.
template <class Blank = bool (*)(char)>
constexpr std::string_view trimmed(std::string_view text, Blank blank = isBlank) {
    const auto first = std::ranges::find_if_not(text, blank);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), blank);
    return {first, last.base()};
}

}  // namespace velvox::ascii
