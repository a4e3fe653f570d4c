// Converts a parsed fragment to the RTF that a rich-edit control streams in, and finds its links.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "app/pane/html_fragment.h"
#include "base/colour.h"

namespace velvox {

/// A link and the characters it covers. Characters are counted as the control does, in UTF-16 units
/// with a line break as one unit.
struct TextLink {
    std::size_t begin = 0;
    std::size_t end = 0;
    std::string address;
    int halfPoints = 0;  ///< size of its first character
};

/// The characters from `begin` up to, but not including, `end`.
struct CharacterRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const CharacterRange&) const = default;
};

struct RichText {
    std::string rtf;              ///< plain ASCII
    std::vector<TextLink> links;  ///< in order; no link is empty
    /// Ranges of links. Links with only line breaks between them share one range.
    std::vector<CharacterRange> spans;
    std::size_t length = 0;  ///< in characters
    std::size_t lines = 1;
    bool truncated = false;  ///< the text ends in restNotice
};

/// If a text is longer than `longText`, its long lines are broken: at the first blank after
/// `longLine` characters, or anywhere after `maxLineLength`. The reason is that Wine's control lays
/// a line out in quadratic time. Large characters count as several.
inline constexpr std::size_t longText = 1000;
inline constexpr std::size_t longLine = 200;
inline constexpr std::size_t maxLineLength = 250;

/// If a text has more spans than this, none of them gets the control's own link format.
inline constexpr std::size_t maxMarkedSpans = 200;

/// Shown in place of text that would cost the control too much.
inline constexpr std::string_view restNotice = "The rest is too long to show.";

/// What the colours of the RTF depend on. Text without a colour has the window's text colour.
struct PaneColours {
    Rgb background = rgb(255, 255, 255);
    Rgb link = rgb(0, 0, 255);
    double linkContrast = textContrast;  ///< minimum contrast of links to the background
    double plainContrast = 3;            ///< minimum contrast of coloured text outside links

    bool operator==(const PaneColours&) const = default;
};

/// Converts a parsed fragment. Colours with too little contrast are moved towards black or white.
RichText toRichText(HtmlFragment fragment, const PaneColours& colours);

/// The link that covers a character, or null. Takes time logarithmic in the number of links.
const TextLink* linkAt(const std::vector<TextLink>& links, std::size_t character);

/// The first link that begins after a character, and the last link that ends before it; null if
/// there is none.
const TextLink* linkAfter(const std::vector<TextLink>& links, std::size_t character);
const TextLink* linkBefore(const std::vector<TextLink>& links, std::size_t character);

/// Lists the addresses of the links in `range`, one per line. Leaves out addresses that may not be
/// opened.
std::string addressList(const std::vector<TextLink>& links,
                        CharacterRange range = {0, std::numeric_limits<std::size_t>::max()});

}  // namespace velvox
