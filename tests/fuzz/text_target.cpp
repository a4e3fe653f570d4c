// Compares the text operations with the standard library. The sections are a needle, a replacement
// and a text.
#include <algorithm>
#include <optional>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

using velvox::text::Position;

Position placeOf(std::size_t index) {
    return static_cast<Position>(index + 1);  // npos becomes 0
}

std::string lowered(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

template <class Action>
auto outcome(Action action) -> std::optional<decltype(action())> {
    try {
        return action();
    } catch (const RuntimeFailure&) {
        return {};
    }
}

}  // namespace

void text(std::string_view input) {
    namespace ours = velvox::text;
    const std::vector<std::string> parts = sections(input);
    if (parts.size() < 3 || parts[2].empty()) return;
    const std::string& mark = parts[0];
    const std::string& with = parts[1];
    const std::string& whole = parts[2];

    for (const std::size_t from : {std::size_t{0}, whole.size() / 2, whole.size() - 1}) {
        require(ours::find(whole, mark, placeOf(from)) == placeOf(whole.find(mark, from)), "find");
        require(ours::findIgnoringCase(whole, mark, placeOf(from)) ==
                    placeOf(lowered(whole).find(lowered(mark), from)),
                "findIgnoringCase");
    }

    const auto count = static_cast<std::size_t>(ours::splitUpperBound(whole, mark));
    const std::string replaced = ours::replaceAll(whole, mark, with);
    require(replaced.size() + count * mark.size() == whole.size() + count * with.size(),
            "replaceAll replaces another number of marks");
    require(ours::replaceAll(whole, mark, mark) == whole, "replaceAll changes the text between");
    std::size_t expected = 0;
    for (std::size_t at = 0; !mark.empty() && (at = whole.find(mark, at)) != whole.npos; ++expected)
        at += mark.size();
    require(count == expected, "splitUpperBound");
    std::string kept = whole;
    std::erase_if(kept, [&](char c) { return mark.find(c) != mark.npos; });
    require(ours::without(whole, mark) == kept, "without");

    const auto start = static_cast<Position>(with.size()) - 2;
    const auto length = static_cast<Position>(mark.size()) - 2;
    const auto piece = outcome([&] { return std::string(ours::slice(whole, start, length)); });
    require(piece.has_value() == (start >= 1 && length >= 0), "slice refuses");
    if (piece) {
        const auto begin = std::min(static_cast<std::size_t>(start - 1), whole.size());
        require(*piece == whole.substr(begin, static_cast<std::size_t>(length)), "slice");
    }

    // A text that toNumber accepts is an optional minus sign and digits, with optional spaces
    // around them. The result is the value of these digits.
    if (const auto number = outcome([&] { return ours::toNumber(whole); })) {
        const auto first = whole.find_first_not_of(' ');
        const std::string digits = whole.substr(first, whole.find_last_not_of(' ') + 1 - first);
        require(std::strtoll(digits.c_str(), nullptr, 10) == *number, "toNumber");
        require(digits.find_first_not_of("0123456789", digits[0] == '-') == digits.npos,
                "toNumber takes too much");
    }
}

}  // namespace velvox::fuzz
