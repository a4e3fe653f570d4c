// Sizes and times of a scroll bar in one table, and which colour a part has in its state.
#pragma once

#include "base/colour.h"
#include "base/twips.h"
#include "controlkit/private_scroll.h"

namespace velvox {

/// Lengths are pixels of a 96 dpi screen.
struct ScrollSizes {
    int border = 1;
    int minThumb = 12;
    int arrowGlyph = 4;        ///< from its tip to its base; the base is twice as long, less one
    int arrowGlyphMargin = 1;  ///< least space between glyph and border, along the bar
    int gripLines = 3;
    int gripSpacing = 3;
    int gripMargin = 4;   ///< from the thumb's border to the ends of a grip line
    int minGripRoom = 7;  ///< of thumb on either side of the grip
    int focusInset = 2;   ///< from the thumb's edge to the focus rectangle

    /// A drag that strays this many thicknesses from the bar shows the value it began with.
    int snapBackThicknesses = 8;
    int firstRepeatMs = 250;  ///< a single click must not repeat
    int minContrast = 24;     ///< sum of the channels' distances below which nothing can be seen
};
inline constexpr ScrollSizes scrollSizes;

/// Whether the pointer is over a part, or holds it.
enum class PartState { None, Hover, Down };

struct ScrollPartLook {
    Rgb fill = 0;
    Rgb border = 0;
    Rgb glyph = 0;  ///< arrow glyph or grip
};

/// The colours of an arrow, the thumb or a piece of the track. A disabled bar is faded towards
/// the track. A glyph too close to its fill takes the border's colour, as the white arrows
/// of the default colours do under the mouse.
ScrollPartLook scrollPartLook(const tsPrivateScroll& bar, ScrollPart part, PartState state,
                              const SystemColours& table);

}  // namespace velvox
