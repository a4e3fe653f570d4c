// Layout of a scroll container: which bars are visible, their range, and the position to scroll to.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "controlkit/scroll_geometry.h"

namespace velvox {

/// One direction of a scroll container. Lengths are in pixels.
struct ScrollExtent {
    int view = 0;         ///< length of the visible area; never negative
    bool hasBar = false;  ///< the bar of this direction is visible
    int max = 0;          ///< the position that shows the end of the content

    bool operator==(const ScrollExtent&) const = default;
};

struct ScrollLayout {
    ScrollExtent horizontal;
    ScrollExtent vertical;

    bool operator==(const ScrollLayout&) const = default;
};

/// A bar is visible if the content does not fit in its direction. The bar takes `thickness` of the
/// other direction's room, which can make the other bar necessary too.
ScrollLayout layOutScroll(const Size& room, const Size& content, int thickness);

/// The position nearest to `position` that shows a part of the content. For a part larger than the
/// view it is the part's start, unless the view already lies within the part.
int positionShowing(const Span& part, int position, int view);

/// The bar that a key (see `ScrollKeys`) scrolls. Keys without a direction, such as Home, scroll
/// the vertical bar, or the horizontal one if there is no vertical bar.
std::optional<Axis> barOfKey(std::int16_t code, const ScrollLayout& layout);

/// The bar that the wheel scrolls: the vertical bar, or the horizontal one with Shift. If only one
/// bar is visible, the wheel scrolls that bar.
std::optional<Axis> barOfWheel(bool shift, const ScrollLayout& layout);

}  // namespace velvox
