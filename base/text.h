// Text is bytes, positions count from 1 and 0 means "not found". All code that cuts text uses these
// functions, so that an offset means the same everywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace velvox::text {

/// A 1-based position in a text, or a length. Signed, because positions are subtracted.
using Position = std::ptrdiff_t;

Position length(std::string_view text);

/// First position of `needle` at or after `start`; 0 if there is none. An empty needle is found at
/// `start` if `start` lies in the text. Throws InvalidCall for a start below 1.
Position find(std::string_view text, std::string_view needle, Position start = 1);

/// As `find`, but ASCII letters match in either case.
Position findIgnoringCase(std::string_view text, std::string_view needle, Position start = 1);

bool contains(std::string_view text, std::string_view needle);

/// `count` bytes from position `start`, or fewer if the text ends before. The view lives as long as
/// `text`. Throws InvalidCall for a start below 1 or a count below 0.
std::string_view slice(std::string_view text, Position start, Position count);

/// `text` with every occurrence of `needle` replaced, left to right; an empty needle changes
/// nothing.
std::string replaceAll(std::string_view text, std::string_view needle, std::string_view with);

/// `text` without the bytes listed in `unwanted`. A text that is moved in is not copied.
std::string without(std::string text, std::string_view unwanted);

/// Splitting `text` at `separator` gives pieces numbered from 0: returns the highest number, which
/// is the count of separators. Returns -1 for an empty text, which gives no piece.
Position splitUpperBound(std::string_view text, std::string_view separator);

/// Parses a whole number with optional spaces around it. Throws TypeMismatch for other text and
/// Overflow for a number beyond 32 bits.
std::int32_t toNumber(std::string_view text);

/// Narrows to 16 bits. Throws Overflow if the value does not fit.
std::int16_t toInt16(Position value);

}  // namespace velvox::text
