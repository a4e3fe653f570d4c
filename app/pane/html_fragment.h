// Parses the HTML that the result pane gets: font, a, br, text and entities. Other tags are
// dropped, but the text inside them is kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/colour.h"

namespace velvox {

/// The look of a run of text.
struct TextLook {
    static constexpr Rgb automatic = -1;

    std::uint16_t face = 0;         ///< index into HtmlFragment::faces
    std::uint16_t halfPoints = 20;  ///< size 2, which is ten points
    Rgb colour = automatic;         ///< `automatic`: the colour of window text or of links

    bool operator==(const TextLook&) const = default;
};

/// A piece of the text that has one look and is in one link or in none.
struct TextRun {
    static constexpr int noLink = -1;

    std::size_t begin = 0;  ///< byte positions in HtmlFragment::text
    std::size_t end = 0;
    TextLook look;
    int link = noLink;  ///< index into HtmlFragment::addresses
};

struct HtmlFragment {
    /// The visible text: entities are resolved, white space is collapsed, and "\n" is a line break.
    std::string text;

    /// The runs cover the text from start to end. No run is empty.
    std::vector<TextRun> runs;

    /// The addresses of the links, in order. Each link has text.
    std::vector<std::string> addresses;

    /// Font names in use. The first one is the font of text outside any font tag.
    std::vector<std::string> faces;

    /// Whether the input was longer than any pane can show. The rest of it was not parsed.
    bool truncated = false;
};

/// A link with a longer address becomes plain text, because no command line of Windows can be
/// longer.
inline constexpr std::size_t maxAddressLength = 32'767;

/// Accepts any bytes. Takes linear time; the memory of the result is limited.
HtmlFragment parseHtmlFragment(std::string_view html);

}  // namespace velvox
