// Turns a parsed fragment into what a rich-edit control streams in, and tells where its links are.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "app/pane/html_fragment.h"
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

/// A text longer than this has its long lines broken: after `longLine` characters at the next
/// blank, after `longestLine` anywhere. Wine's control lays a line out in time that grows with the
/// square of its length, and a million characters in one line take it minutes.
inline constexpr std::size_t longText = 4000;
inline constexpr std::size_t longLine = 200;
inline constexpr std::size_t longestLine = 250;

/// What is shown at most; a notice takes the place of the rest. Beyond it the control runs out of
/// this process's memory and takes the program with it.
inline constexpr std::size_t mostCharacters = 2'000'000;
inline constexpr std::size_t mostLines = 200'000;
inline constexpr std::string_view restNotice = "The rest is too long to show.";

RichText toRichText(const HtmlFragment& fragment, Rgb linkColour);

/// The link that covers a character, or null. Takes time logarithmic in the number of links.
const TextLink* linkAt(const std::vector<TextLink>& links, std::size_t character);

/// The link that begins next behind a character, and the one that ends last before it, or null.
const TextLink* linkAfter(const std::vector<TextLink>& links, std::size_t character);
const TextLink* linkBefore(const std::vector<TextLink>& links, std::size_t character);

/// All addresses that may be opened, each on a line of its own.
std::string addressList(const std::vector<TextLink>& links);

}  // namespace velvox
