// The text operations against plain loops. The sections are a mark, a replacement and a text.
#include <algorithm>
#include <optional>

#include "base/runtime_failure.h"
#include "base/text.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

using velvox::text::Position;

Position plainFind(std::string_view text, std::string_view mark, Position start, bool anyCase) {
    const auto same = [anyCase](char a, char b) {
        const auto lower = [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        };
        return anyCase ? lower(a) == lower(b) : a == b;
    };
    const auto size = static_cast<Position>(text.size());
    const auto markSize = static_cast<Position>(mark.size());
    for (Position at = start; at <= size && at + markSize <= size + 1; ++at)
        if (std::equal(mark.begin(), mark.end(), text.begin() + (at - 1), same)) return at;
    return 0;
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
    if (parts.size() < 3) return;
    const std::string& mark = parts[0];
    const std::string& with = parts[1];
    const std::string& whole = parts[2];

    for (const Position start : {Position{1}, static_cast<Position>(whole.size() / 2 + 1),
                                 static_cast<Position>(whole.size() + 1)}) {
        require(ours::find(whole, mark, start) == plainFind(whole, mark, start, false), "find");
        require(ours::findIgnoringCase(whole, mark, start) == plainFind(whole, mark, start, true),
                "findIgnoringCase");
    }

    std::string replaced;
    Position count = 0;
    for (std::size_t at = 0; at < whole.size();) {
        if (!mark.empty() && whole.compare(at, mark.size(), mark) == 0) {
            replaced += with;
            at += mark.size();
            ++count;
        } else {
            replaced += whole[at++];
        }
    }
    require(ours::replaceAll(whole, mark, with) == replaced, "replaceAll");
    require(ours::splitUpperBound(whole, mark) == (whole.empty() ? -1 : count), "splitUpperBound");

    const auto start = static_cast<Position>(with.size()) - 2;
    const auto length = static_cast<Position>(mark.size()) - 2;
    const auto piece = outcome([&] { return std::string(ours::slice(whole, start, length)); });
    require(piece.has_value() == (start >= 1 && length >= 0), "slice refuses");
    if (piece) {
        std::string expected;
        for (Position i = start; i < start + length && i <= static_cast<Position>(whole.size());
             ++i)
            expected += whole[static_cast<std::size_t>(i - 1)];
        require(*piece == expected, "slice");
    }

    // A number is its own text, and nothing else is taken.
    if (const auto number = outcome([&] { return ours::toNumber(whole); })) {
        std::string digits = whole.substr(whole.find_first_not_of(' '));
        digits.erase(digits.find_last_not_of(' ') + 1);
        require(!digits.empty() && std::strtoll(digits.c_str(), nullptr, 10) == *number,
                "toNumber");
        require(digits.find_first_not_of("0123456789", digits[0] == '-') == digits.npos,
                "toNumber takes too much");
    }
}

}  // namespace velvox::fuzz
