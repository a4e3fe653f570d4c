// Reads the HTML that the result pane is given: font, a, br, text and entities. Of anything else
// the text is kept, so a page's own words or a pasted line show as they are.
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
    std::uint16_t halfPoints = 20;  ///< size 2, ten points
    Rgb colour = automatic;         ///< or the colour that window text or links have

    bool operator==(const TextLook&) const = default;
};

/// A piece of the text with one look, inside one link or none.
struct TextRun {
    static constexpr int noLink = -1;

    std::size_t begin = 0;  ///< bytes of HtmlFragment::text
    std::size_t end = 0;
    TextLook look;
    int link = noLink;  ///< index into HtmlFragment::addresses
};

struct HtmlFragment {
    /// The visible text, entities resolved and white space collapsed; "\n" is a line break.
    std::string text;

    /// Cover the text from start to end; none is empty.
    std::vector<TextRun> runs;

    /// The links' addresses, in order; each link has text.
    std::vector<std::string> addresses;

    /// Font names in use; the first is the one of text outside any font tag.
    std::vector<std::string> faces;

    /// The input was longer than any pane can show; the rest was not read.
    bool truncated = false;
};

/// A link with a longer address is plain text: Windows passes no longer command line to a program.
inline constexpr std::size_t maxAddressLength = 32'767;

/// Takes any bytes, in time linear in their number; the result's memory is bounded.
HtmlFragment parseHtmlFragment(std::string_view html);

}  // namespace velvox
