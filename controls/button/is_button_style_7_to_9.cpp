// Styles 7 to 9: faces computed pixel by pixel, in windows with cut corners.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>

#include "controls/button/is_button_gloss.h"

namespace velvox {
namespace {

// Depth of the cut at each corner. A pixel belongs to the window when the sum of its distances from
// the two sides of the corner is at least this depth.
struct Cuts {
    int topLeft;
    int topRight;
    int bottomRight;
    int bottomLeft;
};
constexpr Cuts smallCuts{1, 1, 1, 1};
constexpr Cuts deepCuts{2, 3, 2, 3};
constexpr int deepestCut = 3;

// A rectangle with slanted corners, divided into one-pixel rings numbered from the outside in.
class Octagon {
 public:
    Octagon(PixelView face, const Cuts& cuts)
        : right_(face.width() - 1), bottom_(face.height() - 1), cuts_(cuts) {}

    /// Number of the ring that contains a pixel, -1 outside. Pixels inside ring `deepest` count as
    /// part of it.
    int ring(int x, int y, int deepest) const {
        int depth = -1;
        while (depth < deepest && holds(x, y, depth + 1)) ++depth;
        return depth;
    }

 private:
    bool holds(int x, int y, int inset) const {
        const int l = x - inset;
        const int t = y - inset;
        const int r = right_ - x - inset;
        const int b = bottom_ - y - inset;
        if (l < 0 || t < 0 || r < 0 || b < 0) return false;
        // Inner rings have smaller cuts: a slanted side that moves inwards by `inset` pixels
        // shortens the cut by (2 - sqrt 2) * inset, about half of `inset`.
        const auto cut = [&](int whole) { return std::max(whole - inset / 2, inset ? 1 : whole); };
        return l + t >= cut(cuts_.topLeft) && r + t >= cut(cuts_.topRight) &&
               r + b >= cut(cuts_.bottomRight) && l + b >= cut(cuts_.bottomLeft);
    }

    int right_;
    int bottom_;
    Cuts cuts_;
};

// Colours each pixel by its ring. `rowPainter(y)` returns a function of x and the ring; colours
// that depend on y alone are computed once for each row.
template <class RowPainter>
void paintRings(PixelView face, const Octagon& shape, int deepest, RowPainter rowPainter) {
    // Between the left and right margins the corners have no effect: a row's pixels are in one
    // ring.
    const int margin = deepest + deepestCut;
    for (int y = 0; y < face.height(); ++y) {
        const auto colour = rowPainter(y);
        const int middle = shape.ring(margin, y, deepest);
        for (int x = 0; x < face.width(); ++x) {
            const bool isMiddle = x >= margin && x < face.width() - margin;
            face.pixel(x, y, colour(x, isMiddle ? middle : shape.ring(x, y, deepest)));
        }
    }
}

bool upright(FaceState state) {
    return state != FaceState::Pressed;
}

bool showsFocus(const FacePlan& plan) {
    return plan.state == FaceState::Focused || plan.focusShown;
}

// Shades of a glossy face from top to bottom. Above the middle they are amounts of white, below the
// middle shifts of the colour.
struct Gloss {
    int topWhite;
    int middleWhite;
    int middleShift;
    int bottomShift;
};

// Colour of a row. Rows of the frame, above and below the face, have the colour of the nearest row.
Rgb glossy(Rgb base, const Gloss& gloss, int row, int rows) {
    row = std::max(std::min(row, rows - 1), 0);
    const int half = rows / 2;
    if (row < half)
        return blend(lighten(base, gloss.topWhite), lighten(base, gloss.middleWhite), row, half);
    return blend(shift(base, gloss.middleShift), shift(base, gloss.bottomShift), row - half,
                 rows - half);
}

namespace glass {
constexpr Gloss normal{210, 110, -16, 8};
constexpr Gloss pressed{40, 10, -40, -22};
constexpr Gloss disabled{120, 90, 0, 4};
constexpr int borderShift = -118, disabledBorderShift = -44;
constexpr int innerWhite = 200;
constexpr int innerPressedShift = -56;
constexpr int hotParts = 80, focusParts = 150;
}  // namespace glass

namespace brushed {
constexpr int grain[] = {7, -3, 4, -7, 1, -4};  // colour shifts of successive rows
constexpr int outer = -140, disabledOuter = -52;
constexpr int bevelLight = 60, bevelDark = -52, bevelSoft = 26, bevelSoftDark = -26;
constexpr int pressedFace = -26, hotFace = 12;
constexpr int sheenParts = 90;  // amount of white at the brightest column
constexpr int hotParts = 120, focusParts = 150;
}  // namespace brushed

namespace porcelain {
constexpr int plateInset = 3;
constexpr int troughTop = -62, troughBottom = -20, troughSoft = 12;
constexpr int disabledTroughTop = -30;
constexpr Gloss plate{235, 150, 10, -14};
constexpr Gloss pressedPlate{30, 60, -22, -6};
constexpr int plateBorder = -104, disabledPlateBorder = -48;
constexpr int hotParts = 70, focusParts = 120;
}  // namespace porcelain

// Colour of the ring inside the frame of style 7.
Rgb glassEdge(const FacePlan& plan, Rgb fill, Rgb accent) {
    if (showsFocus(plan)) return mixed(fill, accent, glass::focusParts);
    if (plan.state == FaceState::Disabled) return fill;
    return upright(plan.state) ? lighten(fill, glass::innerWhite)
                               : shift(fill, glass::innerPressedShift);
}

}  // namespace

// Style 7: two panes of glass that meet in the middle.
void paintGlass(PixelView face, const FacePlan& plan) {
    const Octagon shape(face, smallCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    const Gloss& gloss = off                   ? glass::disabled
                         : upright(plan.state) ? glass::normal
                                               : glass::pressed;
    Rgb base = plan.back();
    if (plan.state == FaceState::Hot) base = mixed(base, accent, glass::hotParts);
    const Rgb border = shift(base, off ? glass::disabledBorderShift : glass::borderShift);
    const Rgb corner = mixed(border, plan.surroundings, 128);
    const int rows = face.height() - 2;
    paintRings(face, shape, 2, [&](int y) {
        const Rgb fill = glossy(base, gloss, y - 1, rows);
        const Rgb colours[] = {corner, border, glassEdge(plan, fill, accent), fill};
        return [=](int, int ring) { return colours[ring + 1]; };
    });
    // The diagonal pixel inside each corner belongs to the border.
    const int right = face.width() - 2;
    const int bottom = face.height() - 2;
    for (const int x : {1, right})
        for (const int y : {1, bottom}) face.pixel(x, y, border);
}

// Style 8: brushed metal in a bevelled frame.
void paintBrushed(PixelView face, const FacePlan& plan) {
    const Octagon shape(face, deepCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    Rgb base = plan.back();
    if (plan.state == FaceState::Pressed) base = shift(base, brushed::pressedFace);
    if (plan.state == FaceState::Hot) base = shift(base, brushed::hotFace);
    const Rgb outer = shift(plan.back(), off ? brushed::disabledOuter : brushed::outer);
    const int w = face.width();
    const int h = face.height();
    const auto bevel = [&](int amount) {
        const Rgb colour = shift(base, amount);
        return plan.state == FaceState::Hot ? mixed(colour, accent, brushed::hotParts) : colour;
    };
    const Rgb light = bevel(brushed::bevelLight);
    const Rgb dark = bevel(brushed::bevelDark);
    // A soft highlight crosses the metal at a third of its width.
    const int reach = std::max(w / 3, 1);
    const bool sheen = !off && upright(plan.state);
    paintRings(face, shape, 3, [&](int y) {
        const int grain = brushed::grain[static_cast<std::size_t>(y) % std::size(brushed::grain)];
        const Rgb metal = shift(base, off ? grain / 2 : grain);
        const int centre = w / 3 + (h / 2 - y) / 2;
        return [&, metal, centre, y](int x, int ring) {
            if (ring < 1) return ring < 0 ? plan.surroundings : outer;
            const int closeness = reach - std::min(std::abs(x - centre), reach);
            const Rgb fill = sheen && closeness > 0
                                 ? lighten(metal, brushed::sheenParts * closeness / reach)
                                 : metal;
            if (ring > 2 || off) return fill;
            // Light comes from the upper left; a pressed bevel is inverted.
            const bool upperLeft = std::min(x, y) < std::min(w - 1 - x, h - 1 - y);
            const bool lit = upperLeft == upright(plan.state);
            if (ring == 1) return lit ? light : dark;
            if (showsFocus(plan)) return mixed(fill, accent, brushed::focusParts);
            return shift(fill, lit ? brushed::bevelSoft : brushed::bevelSoftDark);
        };
    });
}

// Style 9: a glazed plate that lies in a trough.
void paintPorcelain(PixelView face, const FacePlan& plan) {
    const Octagon shape(face, deepCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    Rgb plate = plan.back();
    Rgb trough = plan.back();
    if (plan.state == FaceState::Hot) plate = mixed(plate, accent, porcelain::hotParts);
    if (showsFocus(plan)) trough = mixed(trough, accent, porcelain::focusParts);
    const Rgb border = shift(plate, off ? porcelain::disabledPlateBorder : porcelain::plateBorder);
    const Gloss& gloss = upright(plan.state) ? porcelain::plate : porcelain::pressedPlate;
    const int first = porcelain::plateInset + 1;
    const int rows = face.height() - 2 * first;
    const Rgb top = shift(trough, off ? porcelain::disabledTroughTop : porcelain::troughTop);
    const Rgb bottom = shift(trough, porcelain::troughBottom);
    paintRings(face, shape, first, [&](int y) {
        const Rgb shade = blend(top, bottom, y, face.height());
        const Rgb glaze = off ? lighten(plate, porcelain::plate.middleWhite / 2)
                              : glossy(plate, gloss, y - first, rows);
        const Rgb colours[] = {plan.surroundings,
                               shade,
                               shift(shade, porcelain::troughSoft),
                               shift(shade, 2 * porcelain::troughSoft),
                               border,
                               glaze};
        return [=](int, int ring) { return colours[ring + 1]; };
    });
}

}  // namespace velvox
