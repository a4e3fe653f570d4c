// Letters, digits and blanks of ASCII text, whatever the locale.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace velvox::ascii {

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
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

/// `text` without blanks, tabs and line ends around it.
constexpr std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace velvox::ascii
