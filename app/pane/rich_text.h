// Turns a parsed fragment into what a rich-edit control streams in, and finds its links.
#pragma once

#include <cstddef>
#include <limits>
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
    std::string rtf;              ///< plain ASCII
    std::vector<TextLink> links;  ///< in order; each has text
    std::vector<CharacterRange>
        spans;               ///< links; neighbours separated only by line breaks share one
    std::size_t length = 0;  ///< characters
    std::size_t lines = 1;
    bool truncated = false;  ///< ends in the notice
};

/// A text longer than this has its long lines broken: at the first blank after `longLine`
/// characters, after `maxLineLength` anywhere. Wine's control lays a line out in time that grows
/// with the square of its length. Larger characters count as several.
inline constexpr std::size_t longText = 1000;
inline constexpr std::size_t longLine = 200;
inline constexpr std::size_t maxLineLength = 250;

/// Only so many stretches of links get the control's own link format, in a second pass.
inline constexpr std::size_t maxMarkedSpans = 200;

/// Takes the place of what would cost the control too much.
inline constexpr std::string_view restNotice = "The rest is too long to show.";

/// What the stream's colours depend on. Text without a colour has the window's.
struct PaneColours {
    Rgb background = rgb(255, 255, 255);
    Rgb link = rgb(0, 0, 255);
    double linkContrast = textContrast;  ///< least contrast of links to the background
    double plainContrast = 3;            ///< and of other coloured text

    bool operator==(const PaneColours&) const = default;
};

/// Colours of too little contrast are moved towards black or white.
RichText toRichText(HtmlFragment fragment, const PaneColours& colours);

/// The link that covers a character, or null. Takes time logarithmic in the number of links.
const TextLink* linkAt(const std::vector<TextLink>& links, std::size_t character);

/// The link that begins next after a character, and the one that ends last before it, or null.
const TextLink* linkAfter(const std::vector<TextLink>& links, std::size_t character);
const TextLink* linkBefore(const std::vector<TextLink>& links, std::size_t character);

/// The addresses that may be opened of links with characters in `range`, each on a line of its own.
std::string addressList(const std::vector<TextLink>& links,
                        CharacterRange range = {0, std::numeric_limits<std::size_t>::max()});

}  // namespace velvox
