#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <iterator>
#include <limits>

#include "base/ascii.h"
#include "base/runtime_failure.h"

namespace velvox::text {
namespace {

void requireStart(Position start) {
    if (start < 1)
        throw RuntimeFailure(Fault::InvalidCall, "A text search starts before position 1");
}

// Boyer-Moore skips most bytes and stays fast even on pages made to slow it down, but it first
// fills a table of 256 entries. Loops that step from match to match would fill that table each
// time, so a plain search covers the first `closeBy` bytes.
constexpr std::size_t closeBy = 512;

std::size_t search(std::string_view text, std::string_view needle, std::size_t from = 0) {
    if (needle.size() == 1) return text.find(needle[0], from);
    const std::size_t found =
        text.substr(0, std::min(text.size(), from + closeBy)).find(needle, from);
    if (found != text.npos || text.size() <= from + closeBy) return found;
    from += closeBy - std::min(closeBy, needle.size() - 1);
    const auto at = std::search(text.begin() + static_cast<Position>(from), text.end(),
                                std::boyer_moore_searcher(needle.begin(), needle.end()));
    return at == text.end() ? text.npos : static_cast<std::size_t>(at - text.begin());
}

/// Iterator that reads bytes in lower case. clang 14 cannot compile a std::views::transform for
/// this.
struct LowerCased {
    using iterator_category = std::random_access_iterator_tag;
    using value_type = char;
    using difference_type = Position;
    using pointer = const char*;
    using reference = char;

    const char* at = nullptr;

    char operator*() const { return ascii::lower(*at); }
    char operator[](Position i) const { return ascii::lower(at[i]); }
    LowerCased& operator++() {
        ++at;
        return *this;
    }
    LowerCased operator+(Position count) const { return {at + count}; }
    Position operator-(LowerCased other) const { return at - other.at; }
    auto operator<=>(const LowerCased&) const = default;
};

Position toPosition(std::size_t index) {
    return index == std::string_view::npos ? 0 : static_cast<Position>(index) + 1;
}

}  // namespace

Position length(std::string_view text) {
    return static_cast<Position>(text.size());
}

Position find(std::string_view text, std::string_view needle, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    if (needle.empty()) return start;
    return toPosition(search(text, needle, static_cast<std::size_t>(start - 1)));
}

Position findIgnoringCase(std::string_view text, std::string_view needle, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    if (needle.empty()) return start;
    const LowerCased begin{text.data() + (start - 1)};
    const LowerCased end{text.data() + text.size()};
    const LowerCased needleBegin{needle.data()};
    const LowerCased needleEnd{needle.data() + needle.size()};
    const auto at = std::search(begin, end, std::boyer_moore_searcher(needleBegin, needleEnd));
    return at == end ? 0 : at - begin + start;
}

bool contains(std::string_view text, std::string_view needle) {
    return find(text, needle) != 0;
}

std::string_view slice(std::string_view text, Position start, Position count) {
    if (start < 1)
        throw RuntimeFailure(Fault::InvalidCall, "A slice of text starts before position 1");
    if (count < 0) throw RuntimeFailure(Fault::InvalidCall, "A slice of text has a length below 0");
    if (start > length(text)) return {};
    return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count));
}

std::string replaceAll(std::string_view text, std::string_view needle, std::string_view with) {
    if (needle.empty()) return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at; (at = search(text, needle, from)) != std::string_view::npos;
         from = at + needle.size()) {
        result.append(text, from, at - from);
        result.append(with);
    }
    result.append(text, from);
    return result;
}

// The loop has no branch, because the bytes to drop come at irregular intervals that no branch
// predictor foresees.
std::string without(std::string text, std::string_view unwanted) {
    std::array<std::uint8_t, 256> kept;
    kept.fill(1);
    for (const char c : unwanted) kept[static_cast<unsigned char>(c)] = 0;
    char* end = text.data();
    for (const char c : text) {
        *end = c;
        end += kept[static_cast<unsigned char>(c)];
    }
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

Position splitUpperBound(std::string_view text, std::string_view separator) {
    if (text.empty()) return -1;
    if (separator.empty()) return 0;
    Position count = 0;
    for (std::size_t at = search(text, separator); at != std::string_view::npos;
         at = search(text, separator, at + separator.size()))
        ++count;
    return count;
}

std::int32_t toNumber(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    const auto last = text.find_last_not_of(' ');
    std::int64_t value = 0;
    const auto mismatch = [&] {
        return RuntimeFailure(Fault::TypeMismatch, "The text is not a whole number");
    };
    if (first == std::string_view::npos) throw mismatch();
    const char* end = text.data() + last + 1;
    const auto [stop, error] = std::from_chars(text.data() + first, end, value);
    if (error == std::errc::result_out_of_range ||
        value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max())
        throw RuntimeFailure(Fault::Overflow, "The number does not fit in 32 bits");
    if (error != std::errc{} || stop != end) throw mismatch();
    return static_cast<std::int32_t>(value);
}

std::int16_t toInt16(Position value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max())
        throw RuntimeFailure(Fault::Overflow, "The number does not fit in 16 bits");
    return static_cast<std::int16_t>(value);
}

}  // namespace velvox::text
