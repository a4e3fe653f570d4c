// Styles 7 to 10: designed faces, pixel by pixel, inside the windows' cut corners.
#include <algorithm>
#include <cmath>

#include "controls/button/is_button_layout.h"
#include "controls/button/is_button_paint_win32.h"

namespace velvox {
namespace {

// How far the outline cuts each corner: a pixel belongs to the window when its distances from the
// corner's two sides add up to at least this much.
struct Cuts {
    int topLeft;
    int topRight;
    int bottomRight;
    int bottomLeft;
};
constexpr Cuts smallCuts{1, 1, 1, 1};
constexpr Cuts deepCuts{2, 3, 2, 3};

// A rectangle with slanted corners, seen as rings from the outside in.
class Octagon {
 public:
    Octagon(const ButtonFace& face, const Cuts& cuts)
        : right_(face.width() - 1), bottom_(face.height() - 1), cuts_(cuts) {}

    /// Number of the ring that holds a pixel, -1 outside; `deepest` and all inside it are one.
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
        // A slanted side seven tenths as long as it is wide moves inwards by as much less.
        const auto cut = [&](int whole) { return std::max(whole - inset / 2, inset ? 1 : whole); };
        return l + t >= cut(cuts_.topLeft) && r + t >= cut(cuts_.topRight) &&
               r + b >= cut(cuts_.bottomRight) && l + b >= cut(cuts_.bottomLeft);
    }

    int right_;
    int bottom_;
    Cuts cuts_;
};

template <class Colour>
void eachPixel(ButtonFace& face, Colour colour) {
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x) face.pixel(x, y, colour(x, y));
}

// Parts of a colour over another, in 255ths.
Rgb mixed(Rgb under, Rgb over, int parts) {
    return blend(under, over, std::clamp(parts, 0, 255), 256);
}

bool upright(FaceState state) {
    return state != FaceState::Pressed;
}

// Custom colours whose highlight is the face itself still need a hot look of their own.
bool standsOut(Rgb colour, Rgb from) {
    constexpr int least = 48;
    return std::abs(redOf(colour) - redOf(from)) + std::abs(greenOf(colour) - greenOf(from)) +
               std::abs(blueOf(colour) - blueOf(from)) >=
           least;
}

Rgb accentOf(const FacePlan& plan) {
    constexpr int darker = -72;
    const Rgb back = plan.back();
    const Rgb accent = plan.highlight(HighlightColour);
    if (standsOut(accent, back)) return accent;
    const Rgb selection = plan.sys(HighlightColour);
    return standsOut(selection, back) ? selection : shift(back, darker);
}

// Shades of one glossy face from top to bottom: amounts of white above the middle, shifts below.
struct Gloss {
    int topWhite;
    int middleWhite;
    int middleShift;
    int bottomShift;
};

Rgb glossy(Rgb base, const Gloss& gloss, int row, int rows) {
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
constexpr int grain[] = {7, -3, 4, -7, 1, -4};  // shifts of successive rows
constexpr int outer = -140, disabledOuter = -52;
constexpr int bevelLight = 60, bevelDark = -52, bevelSoft = 26, bevelSoftDark = -26;
constexpr int pressedFace = -26, hotFace = 12;
constexpr int sheenParts = 90;  // of white, at the brightest column
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

namespace pill {
constexpr int borderShift = -112, disabledBorderShift = -50;
constexpr int edgeShade = -34;   // just inside the border
constexpr double edgeReach = 4;  // pixels over which that shade fades
constexpr int bottomGlow = 44, topShade = -24, pressedShade = -40;
constexpr int capTopWhite = 225, capBottomWhite = 60;
constexpr double capInset = 2, capShare = 0.46, capSideShare = 0.22;
constexpr double solidDepth = 5;  // neither border nor ring reaches further in
constexpr int hotParts = 120, focusParts = 190;
constexpr double focusReach = 3;
constexpr int disabledWhite = 90;
}  // namespace pill

}  // namespace

// Style 7: two panes of glass that meet in the middle.
void paintGlass(ButtonFace& face, const FacePlan& plan) {
    const Octagon shape(face, smallCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    const Gloss& gloss = off                   ? glass::disabled
                         : upright(plan.state) ? glass::normal
                                               : glass::pressed;
    Rgb base = plan.back();
    if (plan.state == FaceState::Hot) base = mixed(base, accent, glass::hotParts);
    const Rgb border = shift(base, off ? glass::disabledBorderShift : glass::borderShift);
    const int rows = face.height() - 2;
    eachPixel(face, [&](int x, int y) {
        const Rgb fill = glossy(base, gloss, std::clamp(y - 1, 0, rows - 1), rows);
        switch (shape.ring(x, y, 2)) {
            case -1: return mixed(border, plan.surroundings, 128);
            case 0: return border;
            case 1:
                if (plan.state == FaceState::Focused || plan.focusShown)
                    return mixed(fill, accent, glass::focusParts);
                if (off) return fill;
                return upright(plan.state) ? lighten(fill, glass::innerWhite)
                                           : shift(fill, glass::innerPressedShift);
            default: return fill;
        }
    });
    // The rounded corner's own pixel.
    const int right = face.width() - 2;
    const int bottom = face.height() - 2;
    for (const int x : {1, right})
        for (const int y : {1, bottom}) face.pixel(x, y, border);
}

// Style 8: brushed metal in a bevelled frame.
void paintBrushed(ButtonFace& face, const FacePlan& plan) {
    const Octagon shape(face, deepCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    Rgb base = plan.back();
    if (plan.state == FaceState::Pressed) base = shift(base, brushed::pressedFace);
    if (plan.state == FaceState::Hot) base = shift(base, brushed::hotFace);
    const Rgb outer = shift(plan.back(), off ? brushed::disabledOuter : brushed::outer);
    const int w = face.width();
    const int h = face.height();
    // A soft light lies across the metal, a third of the way from the left.
    const auto sheen = [&](int x, int y) {
        const int centre = w / 3 + (h / 2 - y) / 2;
        const int reach = std::max(w / 3, 1);
        const int away = std::min(std::abs(x - centre), reach);
        return brushed::sheenParts * (reach - away) / reach;
    };
    eachPixel(face, [&](int x, int y) {
        const int grain = brushed::grain[static_cast<std::size_t>(y) % std::size(brushed::grain)];
        const Rgb metal = shift(base, off ? grain / 2 : grain);
        const Rgb fill = off || !upright(plan.state) ? metal : mixed(metal, 0xFFFFFF, sheen(x, y));
        const int ring = shape.ring(x, y, 3);
        if (ring < 1) return ring < 0 ? plan.surroundings : outer;
        if (ring > 2 || off) return fill;
        // Light falls from the upper left; a pressed bevel turns round.
        const bool upperLeft = x + y < std::min(x + (h - 1 - y), (w - 1 - x) + y) ||
                               std::min(x, y) < std::min(w - 1 - x, h - 1 - y);
        const bool lit = upperLeft == upright(plan.state);
        if (ring == 1) {
            const Rgb bevel = shift(base, lit ? brushed::bevelLight : brushed::bevelDark);
            return plan.state == FaceState::Hot ? mixed(bevel, accent, brushed::hotParts) : bevel;
        }
        if (plan.state == FaceState::Focused || plan.focusShown)
            return mixed(fill, accent, brushed::focusParts);
        return shift(fill, lit ? brushed::bevelSoft : brushed::bevelSoftDark);
    });
}

// Style 9: a glazed plate that lies in a trough.
void paintPorcelain(ButtonFace& face, const FacePlan& plan) {
    const Octagon shape(face, deepCuts);
    const Rgb accent = accentOf(plan);
    const bool off = plan.state == FaceState::Disabled;
    const Rgb back = plan.back();
    Rgb plate = back;
    Rgb trough = back;
    if (plan.state == FaceState::Hot) plate = mixed(plate, accent, porcelain::hotParts);
    if (plan.state == FaceState::Focused || plan.focusShown)
        trough = mixed(trough, accent, porcelain::focusParts);
    const int h = face.height();
    const Rgb plateBorder =
        shift(plate, off ? porcelain::disabledPlateBorder : porcelain::plateBorder);
    const Gloss& gloss = upright(plan.state) ? porcelain::plate : porcelain::pressedPlate;
    const int first = porcelain::plateInset + 1;
    const int rows = std::max(h - 2 * first, 1);
    eachPixel(face, [&](int x, int y) {
        const int ring = shape.ring(x, y, first);
        if (ring < 0) return plan.surroundings;
        if (ring < porcelain::plateInset) {
            const int top = off ? porcelain::disabledTroughTop : porcelain::troughTop;
            const Rgb shade =
                blend(shift(trough, top), shift(trough, porcelain::troughBottom), y, h);
            return shift(shade, ring * porcelain::troughSoft);
        }
        if (ring == porcelain::plateInset) return plateBorder;
        if (off) return lighten(plate, porcelain::plate.middleWhite / 2);
        return glossy(plate, gloss, std::clamp(y - first, 0, rows - 1), rows);
    });
}

// Style 10: a pill with a light cap, smooth along its edge.
void paintPill(ButtonFace& face, const FacePlan& plan) {
    const double w = face.width();
    const double h = face.height();
    const bool off = plan.state == FaceState::Disabled;
    const bool down = plan.state == FaceState::Pressed;
    Rgb base = plan.back();
    const Rgb accent = accentOf(plan);
    if (plan.state == FaceState::Hot) base = mixed(base, accent, pill::hotParts);
    const bool focused = plan.state == FaceState::Focused || plan.focusShown;
    const Rgb border = shift(base, off ? pill::disabledBorderShift : pill::borderShift);

    // How far a point lies inside a pill whose edge is `inset` pixels in.
    const double roundness = pillDiameter(face.width(), face.height()) / 2.0;
    const auto inside = [roundness](double x, double y, double left, double top, double right,
                                    double bottom) {
        const double radius = std::min({right - left, bottom - top, 2 * roundness}) / 2;
        const double dx = std::max({left + radius - x, x - (right - radius), 0.0});
        const double dy = std::max({top + radius - y, y - (bottom - radius), 0.0});
        return radius - (dx > 0 && dy > 0 ? std::sqrt(dx * dx + dy * dy) : dx + dy);
    };
    const auto covered = [](double depth) {
        return static_cast<int>(std::clamp(depth + 0.5, 0.0, 1.0) * 255);
    };
    const double capBottom = h * pill::capShare;
    const double capSide = h * pill::capSideShare;
    eachPixel(face, [&](int column, int row) {
        const double x = column + 0.5;
        const double y = row + 0.5;
        const double depth = inside(x, y, 0, 0, w, h);
        Rgb fill = base;
        if (off) {
            fill = lighten(base, pill::disabledWhite);
        } else {
            const double down01 = y / h;
            const int shade =
                static_cast<int>(pill::topShade + (pill::bottomGlow - pill::topShade) * down01);
            fill = shift(base, down ? shade + pill::pressedShade : shade);
            if (depth < pill::edgeReach + 1) {
                const double edge = std::clamp(1 - (depth - 1) / pill::edgeReach, 0.0, 1.0);
                fill = shift(fill, static_cast<int>(pill::edgeShade * edge * edge));
            }
            if (y < capBottom + 1) {
                const double cap = inside(x, y, capSide, pill::capInset, w - capSide, capBottom);
                const double fade =
                    std::clamp((y - pill::capInset) / (capBottom - pill::capInset), 0.0, 1.0);
                const int white = static_cast<int>(
                    pill::capTopWhite + (pill::capBottomWhite - pill::capTopWhite) * fade);
                fill = mixed(fill, lighten(fill, down ? white / 2 : white), covered(cap));
            }
        }
        if (depth > pill::solidDepth) return fill;
        if (focused)
            fill = mixed(fill, accent, pill::focusParts * covered(pill::focusReach - depth) / 255);
        const Rgb framed = mixed(border, fill, covered(depth - 1.5));
        return mixed(plan.surroundings, framed, covered(depth));
    });
}

}  // namespace velvox
