// The decisions of a scroll container: which bars show, how far they reach, and where it scrolls.
#pragma once

#include <cstdint>
#include <optional>

#include "base/geometry.h"
#include "controlkit/scroll_geometry.h"

namespace velvox {

/// One direction of a scroll container. Lengths are pixels.
struct ScrollExtent {
    int view = 0;         ///< of the content that is seen; never negative
    bool hasBar = false;  ///< the bar that scrolls in this direction shows
    int max = 0;          ///< the position at which the content's end is seen

    bool operator==(const ScrollExtent&) const = default;
};

struct ScrollLayout {
    ScrollExtent horizontal;
    ScrollExtent vertical;

    bool operator==(const ScrollLayout&) const = default;
};

/// A bar shows where the content does not fit. It takes `thickness` of the room in the other
/// direction, which may be why the other bar shows too.
ScrollLayout layOutScroll(const Size& room, const Size& content, int thickness);

/// The position nearest to `position` at which a part of the content can be seen. Of a part larger
/// than the view its start is, unless the view lies within it.
int positionShowing(const Span& part, int position, int view);

/// The bar that a key (see `ScrollKeys`) moves. Keys that are not bound to a direction move the
/// horizontal bar where there is no vertical one.
std::optional<Axis> barOfKey(std::int16_t code, const ScrollLayout& layout);

/// The bar that the wheel moves: the vertical one, without one or with Shift the horizontal one.
std::optional<Axis> barOfWheel(bool shift, const ScrollLayout& layout);

}  // namespace velvox
