// Positions of the parts of a scroll bar, in pixels along the bar. The numbers are the same for a
// vertical and a horizontal bar.
#pragma once

#include <cstdint>
#include <string_view>

#include "controlkit/fixed_point.h"

namespace velvox {

enum class Axis { Vertical, Horizontal };

/// A part of a bar, in the order in which the parts follow each other along it.
enum class ScrollPart { None, LessArrow, TrackBefore, Thumb, TrackAfter, MoreArrow };

constexpr bool isArrow(ScrollPart part) {
    return part == ScrollPart::LessArrow || part == ScrollPart::MoreArrow;
}
constexpr bool isTrack(ScrollPart part) {
    return part == ScrollPart::TrackBefore || part == ScrollPart::TrackAfter;
}

struct Span {
    int start = 0;
    int length = 0;

    constexpr int end() const { return start + length; }
    constexpr bool contains(int at) const { return at >= start && at < end(); }
    bool operator==(const Span&) const = default;
};

/// Input for the positions of the parts.
struct ScrollMeasure {
    int length = 0;       ///< the whole bar, pixels
    int arrowLength = 0;  ///< pixels
    int minThumb = 0;     ///< pixels
    std::int32_t min = 0;
    std::int32_t max = 0;
    std::int32_t largeChange = 0;
    FixedPoint value;
};

class ScrollGeometry {
 public:
    /// Arrows that do not fit get half of the bar each. The thumb takes LargeChange / (Max - Min +
    /// LargeChange) of the track, but at least `minThumb`. It takes the whole track if there is
    /// nothing to scroll (Max at or below Min). A track shorter than `minThumb` has no thumb.
    explicit ScrollGeometry(const ScrollMeasure& measure);

    Span lessArrow() const noexcept { return lessArrow_; }
    Span track() const noexcept { return track_; }
    Span moreArrow() const noexcept { return moreArrow_; }

    /// Has length 0 if the track is too short for a thumb.
    Span thumb() const noexcept { return thumb_; }

    /// The parts of the track before and after the thumb.
    Span trackBefore() const noexcept { return {track_.start, thumb_.start - track_.start}; }
    Span trackAfter() const noexcept { return {thumb_.end(), track_.end() - thumb_.end()}; }

    /// The part at a position along the bar.
    ScrollPart hit(int along) const;

    /// Clamps the start of the thumb to its possible positions.
    int clampThumb(int start) const;

    /// The value, a whole number, of a thumb that starts at `start`. The first and the last
    /// position give exactly Min and Max.
    FixedPoint valueAt(int start) const;

    /// A copy whose thumb starts at `start`.
    ScrollGeometry withThumbAt(int start) const;

 private:
    int travel() const noexcept { return track_.length - thumb_.length; }

    Span lessArrow_;
    Span track_;
    Span moreArrow_;
    Span thumb_;
    std::int32_t min_;
    std::int64_t range_;  // 0 where there is nothing to scroll
};

}  // namespace velvox
