// Converts between the program's text, which is bytes, and the UTF-16 of Windows.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// Converts UTF-8. A byte that is not part of valid UTF-8 becomes the Latin-1 character of the same
/// number, so that text in any encoding keeps its ASCII characters.
std::u16string toUtf16(std::string_view bytes);

/// The first `count` characters, or all. A character is what toUtf16 decodes as one code point.
std::string_view firstCharacters(std::string_view bytes, std::size_t count);

/// Number of characters, counted like in firstCharacters.
std::size_t characterCount(std::string_view bytes);

/// Converts UTF-16 to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string toBytes(std::u16string_view text);

}  // namespace velvox
