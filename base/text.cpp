#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <functional>
#include <limits>

#include "base/runtime_failure.h"

namespace velvox::text {
namespace {

void requireStart(Position start) {
    if (start < 1) throw RuntimeFailure(Fault::InvalidCall, "A text search starts before place 1");
}

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

/// The first place of a mark at or behind `from`, counted from 0, or npos. The text is passed over
/// at memory speed to one of the mark's bytes, and only there the whole mark is compared. Where
/// that byte turns out to be frequent another one that may serve takes its place, so that no page
/// can be made slow by filling it with some letter of the mark.
template <class MayServe, class Equal>
std::size_t search(std::string_view text, std::string_view mark, std::size_t from,
                   MayServe mayServe, Equal equal) {
    constexpr std::size_t frequent = 16;
    if (mark.size() > text.size()) return std::string_view::npos;
    const std::size_t lastPlace = text.size() - mark.size();
    const auto nextAnchor = [&](std::size_t anchor) {
        do anchor = (anchor + 1) % mark.size();
        while (!mayServe(mark[anchor]));
        return anchor;
    };
    std::size_t anchor = nextAnchor(mark.size() - 1);
    while (from <= lastPlace) {
        const char* start = text.data() + from + anchor;
        const void* hit = std::memchr(start, mark[anchor], lastPlace - from + 1);
        if (!hit) break;
        const auto passed = static_cast<std::size_t>(static_cast<const char*>(hit) - start);
        from += passed;
        if (equal(text.substr(from, mark.size()), mark)) return from;
        ++from;
        if (passed < frequent) anchor = nextAnchor(anchor);
    }
    return std::string_view::npos;
}

std::size_t search(std::string_view text, std::string_view mark, std::size_t from = 0) {
    return search(
        text, mark, from, [](char) { return true; }, std::equal_to<std::string_view>());
}

/// Without a branch: in a page the bytes to drop come every few others, which no processor
/// foresees.
void removeAll(std::string& text, char unwanted) {
    const std::size_t size = text.size();
    std::size_t kept = std::min(text.find(unwanted), size);
    char* bytes = text.data();
    for (std::size_t i = kept; i < size; ++i) {
        const char c = bytes[i];
        bytes[kept] = c;
        kept += static_cast<std::size_t>(c != unwanted);
    }
    text.resize(kept);
}

Position placeOf(std::size_t index) {
    return index == std::string_view::npos ? 0 : static_cast<Position>(index) + 1;
}

}  // namespace

Position length(std::string_view text) {
    return static_cast<Position>(text.size());
}

Position find(std::string_view text, std::string_view mark, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    if (mark.empty()) return start;
    return placeOf(search(text, mark, static_cast<std::size_t>(start - 1)));
}

Position findIgnoringCase(std::string_view text, std::string_view mark, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    if (mark.empty()) return start;
    const auto from = static_cast<std::size_t>(start - 1);
    const auto hasNoCase = [](char c) { return !isLetter(c); };
    if (std::any_of(mark.begin(), mark.end(), hasNoCase))
        return placeOf(search(text, mark, from, hasNoCase, equalIgnoringCase));
    const auto at =
        std::search(text.begin() + static_cast<Position>(from), text.end(), mark.begin(),
                    mark.end(), [](char a, char b) { return lower(a) == lower(b); });
    return at == text.end() ? 0 : at - text.begin() + 1;
}

bool contains(std::string_view text, std::string_view mark) {
    return find(text, mark) != 0;
}

std::string_view slice(std::string_view text, Position start, Position count) {
    if (start < 1)
        throw RuntimeFailure(Fault::InvalidCall, "A slice of text starts before place 1");
    if (count < 0) throw RuntimeFailure(Fault::InvalidCall, "A slice of text has a length below 0");
    if (start > length(text)) return {};
    return text.substr(static_cast<std::size_t>(start - 1), static_cast<std::size_t>(count));
}

std::string replaceAll(std::string text, std::string_view mark, std::string_view with) {
    if (mark.empty()) return text;
    if (mark.size() == 1 && with.empty()) {
        removeAll(text, mark[0]);
        return text;
    }
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at; (at = search(text, mark, from)) != std::string_view::npos;
         from = at + mark.size()) {
        result.append(text, from, at - from);
        result.append(with);
    }
    result.append(text, from);
    return result;
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
