#include "base/text.h"

#include <emmintrin.h>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <iterator>
#include <limits>

#include "base/ascii.h"
#include "base/runtime_failure.h"

namespace velvox::text {
namespace {

/// Bits of the 16 bytes from `at` that equal `wanted`. The lowest bit is the first byte.
unsigned equalBytes(const char* at, char wanted) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted))));
}

struct Exact {
    static bool equal(std::string_view a, std::string_view b) { return a == b; }
    static unsigned equalIn16(const char* at, char wanted) { return equalBytes(at, wanted); }
};

struct IgnoringCase {
    static bool equal(std::string_view a, std::string_view b) {
        return ascii::equalIgnoringCase(a, b);
    }
    static unsigned equalIn16(const char* at, char wanted) {
        return equalBytes(at, ascii::lower(wanted)) | equalBytes(at, ascii::upper(wanted));
    }
};

// Looks for the first and the last byte of the needle at 16 places at once. As long as several
// places remain, more of its first bytes choose between them; then all bytes are compared. The
// worst case is the length of the text times that of the needle. The longest needle that a server
// can choose is a part of an address; comparing views handles many bytes at once and so keeps that
// case below 0.1 s.
template <class Letters>
std::size_t search(std::string_view text, std::string_view needle, std::size_t from = 0) {
    constexpr std::size_t block = 16;
    if (text.size() < needle.size()) return text.npos;
    const std::size_t last = needle.size() - 1;
    const std::size_t probes = std::min(last, block);
    const std::size_t end = text.size() - last;
    const auto isAt = [&](std::size_t place) {
        return Letters::equal(text.substr(place, needle.size()), needle);
    };
    for (; from + block <= end; from += block) {
        unsigned places = Letters::equalIn16(&text[from], needle.front()) &
                          Letters::equalIn16(&text[from + last], needle.back());
        for (std::size_t i = 1; (places & (places - 1)) != 0 && i < probes; ++i)
            places &= Letters::equalIn16(&text[from + i], needle[i]);
        for (; places != 0; places &= places - 1) {
            const std::size_t place = from + static_cast<std::size_t>(std::countr_zero(places));
            if (isAt(place)) return place;
        }
    }
    for (; from < end; ++from)
        if (isAt(from)) return from;
    return text.npos;
}

template <class Letters>
Position findFrom(std::string_view text, std::string_view needle, Position start) {
    if (start < 1)
        throw RuntimeFailure(Fault::InvalidCall, "A text search starts before position 1");
    if (start > length(text)) return 0;
    if (needle.empty()) return start;
    const std::size_t at = search<Letters>(text, needle, static_cast<std::size_t>(start - 1));
    return at == text.npos ? 0 : static_cast<Position>(at) + 1;
}

}  // namespace

Position length(std::string_view text) {
    return static_cast<Position>(text.size());
}

Position find(std::string_view text, std::string_view needle, Position start) {
    return findFrom<Exact>(text, needle, start);
}

Position findIgnoringCase(std::string_view text, std::string_view needle, Position start) {
    return findFrom<IgnoringCase>(text, needle, start);
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
    for (std::size_t at; (at = search<Exact>(text, needle, from)) != std::string_view::npos;
         from = at + needle.size()) {
        result.append(text, from, at - from);
        result.append(with);
    }
    result.append(text, from);
    return result;
}

// The loop has no branch, because the bytes to drop come at irregular intervals that no branch
// predictor foresees. It writes to a block of its own: writing just before the byte that is read
// next would take three times as long.
std::string without(std::string text, std::string_view unwanted) {
    std::array<std::uint8_t, 256> kept;
    kept.fill(1);
    for (const char c : unwanted) kept[static_cast<unsigned char>(c)] = 0;
    std::array<char, 4096> block;
    auto out = text.begin();
    for (std::string_view rest = text; !rest.empty();) {
        char* end = block.data();
        for (const char c : rest.substr(0, block.size())) {
            *end = c;
            end += kept[static_cast<unsigned char>(c)];
        }
        rest.remove_prefix(std::min(rest.size(), block.size()));
        out = std::copy(block.data(), end, out);
    }
    text.erase(out, text.end());
    return text;
}

Position splitUpperBound(std::string_view text, std::string_view separator) {
    if (text.empty()) return -1;
    if (separator.empty()) return 0;
    Position count = 0;
    for (std::size_t at = search<Exact>(text, separator); at != std::string_view::npos;
         at = search<Exact>(text, separator, at + separator.size()))
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
