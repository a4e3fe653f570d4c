// Style 10: a pill with a light cap, smooth along its edge.
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "controls/button/is_button_gloss.h"

namespace velvox {
namespace {

// Lengths in this file are integers in 256ths of a pixel, because integer arithmetic gives the same
// picture on every processor.
constexpr int one = 256;

namespace pill {
constexpr int borderShift = -112, disabledBorderShift = -50;
constexpr int edgeShade = -34;      // shift of the fill just inside the border
constexpr int edgeReach = 4 * one;  // distance over which edgeShade fades out
constexpr int bottomGlow = 44, topShade = -24, pressedShade = -40;
constexpr int capTopWhite = 225, capBottomWhite = 60;
constexpr int capInset = 2 * one;
constexpr int capPercent = 46, capSidePercent = 22;  // percentages of the face's height
constexpr int solidDepth = 5 * one;                  // border and focus ring end within this depth
constexpr int borderDepth = one + one / 2;
constexpr int hotParts = 120, focusParts = 190;
constexpr int focusReach = 3 * one;
constexpr int disabledWhite = 90;
}  // namespace pill

// A rectangle with round ends.
class RoundRect {
 public:
    RoundRect(const Rect& at, int maxRadius)
        : at_(at), radius_(std::min({at.right - at.left, at.bottom - at.top, 2 * maxRadius}) / 2) {}

    int radius() const { return radius_; }

    /// Distance of a point from the nearest edge; negative outside.
    int depth(Point p) const {
        const std::int64_t dx =
            std::max({at_.left + radius_ - p.x, p.x - (at_.right - radius_), 0});
        const std::int64_t dy =
            std::max({at_.top + radius_ - p.y, p.y - (at_.bottom - radius_), 0});
        if (dx == 0 || dy == 0) return radius_ - static_cast<int>(dx + dy);
        return radius_ - static_cast<int>(std::sqrt(static_cast<double>(dx * dx + dy * dy)));
    }

 private:
    Rect at_;
    int radius_;
};

// How much of a pixel a shape covers, in 255ths; `depth` is the distance of the pixel's centre
// inside the shape's edge.
int covered(int depth) {
    return std::clamp(depth + one / 2, 0, one) * 255 / one;
}

class Pill {
 public:
    Pill(PixelView face, const FacePlan& plan)
        : plan_(plan),
          height_(face.height() * one),
          width_(face.width() * one),
          capBottom_(height_ * pill::capPercent / 100),
          outline_({0, 0, width_, height_}, maxRadius(face)),
          cap_({capSide(), pill::capInset, width_ - capSide(), capBottom_}, maxRadius(face)),
          accent_(accentOf(plan)),
          base_(plan.back()) {
        if (plan.state == FaceState::Hot) base_ = mixed(base_, accent_, pill::hotParts);
        border_ = shift(base_, isOff() ? pill::disabledBorderShift : pill::borderShift);
    }

    /// Number of columns at each end of a row; the columns between the ends have a single colour.
    int endColumns() const {
        return std::max(outline_.radius(), capSide() + cap_.radius()) / one + 1;
    }

    Rgb colour(int column, int row) const {
        const Point p{column * one + one / 2, row * one + one / 2};
        const int depth = outline_.depth(p);
        Rgb fill = isOff() ? lighten(base_, pill::disabledWhite) : shaded(p, depth);
        if (depth > pill::solidDepth) return fill;
        if (plan_.state == FaceState::Focused || plan_.focusShown)
            fill = mixed(fill, accent_, pill::focusParts * covered(pill::focusReach - depth) / 255);
        const Rgb framed = mixed(border_, fill, covered(depth - pill::borderDepth));
        return mixed(plan_.surroundings, framed, covered(depth));
    }

 private:
    static int maxRadius(PixelView face) {
        return pillDiameter(face.width(), face.height()) * one / 2;
    }
    int capSide() const { return height_ * pill::capSidePercent / 100; }
    bool isOff() const { return plan_.state == FaceState::Disabled; }

    // The fill at a point: a vertical gradient, darker along the edge, with the light cap blended
    // over it.
    Rgb shaded(Point p, int depth) const {
        const bool down = plan_.state == FaceState::Pressed;
        const int shade = pill::topShade + (pill::bottomGlow - pill::topShade) * (p.y / (one / 2)) /
                                               (height_ / (one / 2));
        Rgb fill = shift(base_, down ? shade + pill::pressedShade : shade);
        if (depth < pill::edgeReach + one) {
            const int edge = std::clamp(one - (depth - one) * one / pill::edgeReach, 0, one);
            fill = shift(fill, pill::edgeShade * edge * edge / (one * one));
        }
        const int inCap = covered(cap_.depth(p));
        if (inCap == 0) return fill;
        const int span = std::max(capBottom_ - pill::capInset, 1);
        const int fade = std::clamp(p.y - pill::capInset, 0, span);
        const int white =
            pill::capTopWhite + (pill::capBottomWhite - pill::capTopWhite) * fade / span;
        return mixed(fill, lighten(fill, down ? white / 2 : white), inCap);
    }

    const FacePlan& plan_;
    int height_;
    int width_;
    int capBottom_;
    RoundRect outline_;
    RoundRect cap_;
    Rgb accent_;
    Rgb base_;
    Rgb border_ = 0;
};

}  // namespace

void paintPill(PixelView face, const FacePlan& plan) {
    const Pill pill(face, plan);
    const int w = face.width();
    const int ends = std::min(pill.endColumns(), (w + 1) / 2);
    for (int y = 0; y < face.height(); ++y) {
        // The right end is the mirror image of the left end.
        for (int x = 0; x < ends; ++x) {
            const Rgb colour = pill.colour(x, y);
            face.pixel(x, y, colour);
            face.pixel(w - 1 - x, y, colour);
        }
        if (ends < w - ends) face.fill({ends, y, w - ends, y + 1}, pill.colour(ends, y));
    }
}

}  // namespace velvox
