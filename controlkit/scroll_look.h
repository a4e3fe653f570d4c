// Sizes and times of a scroll bar, and the colours of its parts.
#pragma once

#include "base/colour.h"
#include "base/twips.h"
#include "controlkit/private_scroll.h"

namespace velvox {

/// Lengths are in pixels of a 96 dpi screen.
struct ScrollSizes {
    int border = 1;
    int minThumb = 12;
    int arrowGlyph = 4;  ///< height from tip to base; the base is twice as long, less one pixel
    int arrowGlyphMargin = 1;  ///< minimum space between glyph and border, along the bar
    int gripLines = 3;
    int gripSpacing = 3;
    int gripMargin = 4;   ///< from the thumb's border to the ends of a grip line
    int minGripRoom = 7;  ///< minimum length of the thumb on each side of the grip
    int focusInset = 2;   ///< from the thumb's edge to the focus rectangle

    /// A drag that is this far from the bar, in multiples of the bar's thickness, restores the
    /// value that it has started with.
    int snapBackThicknesses = 8;
    int firstRepeatMs = 250;  ///< delay of the first repeat: a single click must not repeat
    int minContrast = 24;     ///< minimum difference of glyph and fill, summed over the channels
};
inline constexpr ScrollSizes scrollSizes;

/// Whether the pointer is over a part, or holds it.
enum class PartState { None, Hover, Down };

struct ScrollPartLook {
    Rgb fill = 0;
    Rgb border = 0;
    Rgb glyph = 0;  ///< arrow glyph or grip
};

/// The colours of an arrow, the thumb or a part of the track. A disabled bar is faded towards the
/// track colour. A glyph with too little contrast to its fill gets the border colour; by default
/// this applies to the white arrows under the mouse.
ScrollPartLook scrollPartLook(const tsPrivateScroll& bar, ScrollPart part, PartState state,
                              const SystemColours& table);

}  // namespace velvox
