// The one crossing between the program's bytes and the system's UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// Bytes read as UTF-8. A byte that is no part of valid UTF-8 becomes the Latin-1 character of
/// the same number, so that pages of any encoding keep their ASCII and show something for the
/// rest.
std::u16string toUtf16(std::string_view bytes);

/// The first `count` characters of a text, or all of it. A character is what toUtf16 reads as one.
std::string_view firstCharacters(std::string_view bytes, std::size_t count);

/// How many of those characters a text has.
std::size_t characterCount(std::string_view bytes);

/// UTF-16 as UTF-8; an unpaired surrogate becomes U+FFFD.
std::string toBytes(std::u16string_view text);

}  // namespace velvox
