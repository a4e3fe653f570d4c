// Turns a parsed fragment into what a rich-edit control streams in, and tells where its links are.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/html_fragment.h"
#include "base/colour.h"

namespace velvox {

/// A link and the characters it covers, counted as the control counts: in UTF-16 units, a line
/// break as one.
struct TextLink {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string address;
    int halfPoints = 0;  ///< size of its first character
};

/// Characters from `begin` to `end`.
struct CharacterRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const CharacterRange&) const = default;
};

struct RichText {
    std::string rtf;                    ///< plain ASCII
    std::vector<TextLink> links;        ///< in order; each has text
    std::vector<CharacterRange> spans;  ///< links, those that only line breaks part taken together
    std::size_t length = 0;             ///< characters
    std::size_t lines = 1;
};

/// Characters after which a line is broken at the next blank, and at the latest. The control lays
/// a line out in time that grows with the square of its length: a million characters in one line
/// take it minutes.
inline constexpr std::size_t longLine = 1500;
inline constexpr std::size_t longestLine = 2000;

RichText toRichText(const HtmlFragment& fragment, Rgb linkColour);

/// The link that covers a character, or null. Takes time logarithmic in the number of links.
const TextLink* linkAt(const std::vector<TextLink>& links, std::size_t character);

/// The link that begins next behind a character, and the one that ends last before it, or null.
const TextLink* linkAfter(const std::vector<TextLink>& links, std::size_t character);
const TextLink* linkBefore(const std::vector<TextLink>& links, std::size_t character);

/// All addresses, each on a line of its own.
std::string addressList(const std::vector<TextLink>& links);

}  // namespace velvox
