#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
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

}  // namespace

Position length(std::string_view text) {
    return static_cast<Position>(text.size());
}

Position find(std::string_view text, std::string_view mark, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    const auto at = text.find(mark, static_cast<std::size_t>(start - 1));
    return at == std::string_view::npos ? 0 : static_cast<Position>(at) + 1;
}

Position findIgnoringCase(std::string_view text, std::string_view mark, Position start) {
    requireStart(start);
    if (start > length(text)) return 0;
    if (mark.empty()) return start;
    if (mark.size() > text.size()) return 0;
    // A character without case is found at memory speed; the letters around it are then compared.
    const auto caseless = std::find_if_not(mark.begin(), mark.end(), isLetter);
    const std::size_t lastPlace = text.size() - mark.size();
    std::size_t at = static_cast<std::size_t>(start - 1);
    if (caseless == mark.end()) {
        for (; at <= lastPlace; ++at)
            if (equalIgnoringCase(text.substr(at, mark.size()), mark))
                return static_cast<Position>(at) + 1;
        return 0;
    }
    const std::size_t anchor = static_cast<std::size_t>(caseless - mark.begin());
    while (at <= lastPlace) {
        const std::size_t hit = text.find(*caseless, at + anchor);
        if (hit == std::string_view::npos || hit - anchor > lastPlace) return 0;
        at = hit - anchor;
        if (equalIgnoringCase(text.substr(at, mark.size()), mark))
            return static_cast<Position>(at) + 1;
        ++at;
    }
    return 0;
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

std::string replaceAll(std::string_view text, std::string_view mark, std::string_view with) {
    if (mark.empty()) return std::string(text);
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(mark, from)) != std::string_view::npos;
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
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, at + separator.size()))
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
