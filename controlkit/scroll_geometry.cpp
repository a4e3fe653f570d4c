#include "controlkit/scroll_geometry.h"

#include <algorithm>
#include <cmath>

namespace velvox {

ScrollGeometry::ScrollGeometry(const ScrollMeasure& m)
    : min_(m.min), range_(std::max<std::int64_t>(0, std::int64_t{m.max} - m.min)) {
    const int length = std::max(0, m.length);
    const int arrow = std::min(std::max(0, m.arrowLength), length / 2);
    lessArrow_ = {0, arrow};
    track_ = {arrow, length - 2 * arrow};
    moreArrow_ = {length - arrow, arrow};

    const double page = std::max(0, m.largeChange);
    const double whole = static_cast<double>(range_) + page;
    const double part = range_ == 0 ? 1.0 : page / whole;
    const int proportional = static_cast<int>(std::lround(part * track_.length));
    thumb_.length = std::max(proportional, m.minThumb);
    if (thumb_.length > track_.length) thumb_.length = 0;

    double done = 0;
    if (range_ > 0) {
        const FixedPoint kept = std::clamp<FixedPoint>(m.value, m.min, m.max);
        done = (kept.toDouble() - m.min) / static_cast<double>(range_);
    }
    thumb_.start = track_.start + static_cast<int>(std::lround(done * travel()));
}

ScrollPart ScrollGeometry::hit(int along) const {
    if (lessArrow_.contains(along)) return ScrollPart::LessArrow;
    if (moreArrow_.contains(along)) return ScrollPart::MoreArrow;
    if (!track_.contains(along)) return ScrollPart::None;
    if (along < thumb_.start) return ScrollPart::TrackBefore;
    return along < thumb_.end() ? ScrollPart::Thumb : ScrollPart::TrackAfter;
}

int ScrollGeometry::clampThumb(int start) const {
    return std::clamp(start, track_.start, track_.start + travel());
}

FixedPoint ScrollGeometry::valueAt(int start) const {
    if (travel() == 0) return min_;
    const double done = static_cast<double>(clampThumb(start) - track_.start) / travel();
    return FixedPoint(min_ + std::round(done * static_cast<double>(range_)));
}

ScrollGeometry ScrollGeometry::withThumbAt(int start) const {
    ScrollGeometry moved = *this;
    moved.thumb_.start = clampThumb(start);
    return moved;
}

}  // namespace velvox
