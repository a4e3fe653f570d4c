// Where the parts of a scroll bar lie, counted in pixels along the bar. Knows no direction: the
// same numbers serve a vertical and a horizontal bar.
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

/// The numbers that the parts follow from.
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
    /// Arrows that do not fit share the bar. The thumb covers LargeChange / (Max - Min +
    /// LargeChange) of the track, `minThumb` at least, and all of it where there is nothing
    /// to scroll (Max at or below Min); a track shorter than the minimum has none.
    explicit ScrollGeometry(const ScrollMeasure& measure);

    Span lessArrow() const noexcept { return lessArrow_; }
    Span track() const noexcept { return track_; }
    Span moreArrow() const noexcept { return moreArrow_; }

    /// Of length 0 where the track is too short for one.
    Span thumb() const noexcept { return thumb_; }

    /// A piece of the track beside the thumb.
    Span trackBefore() const noexcept { return {track_.start, thumb_.start - track_.start}; }
    Span trackAfter() const noexcept { return {thumb_.end(), track_.end() - thumb_.end()}; }

    /// The part at a pixel of the bar.
    ScrollPart hit(int along) const;

    /// `start` clamped to the range of the thumb.
    int clampThumb(int start) const;

    /// The whole number that a thumb starting at `start` shows; both ends of the range are exact.
    FixedPoint valueAt(int start) const;

    /// The same bar with its thumb held at a pixel.
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
