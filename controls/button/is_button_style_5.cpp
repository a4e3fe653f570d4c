// Style 5: the polished button, painted in custom colours or in the system's colours.
#include "controls/button/is_button_paint.h"

namespace velvox {
namespace {

// Amounts by which the base colour is shifted, in the order of their use.
namespace raised {
constexpr int faceBottom = -15, faceTop = 21;
constexpr int innerEdgeBottom = -21, innerEdgeTop = -5;
constexpr int outerEdgeBottom = -32, outerEdgeTop = 5;
constexpr int thirdLine = -16, secondLine = -24, lastLine = -37;
constexpr int border = -128;
}  // namespace raised

namespace sunken {
constexpr int outerEdgeBottom = -37, outerEdgeTop = -21;
constexpr int innerEdgeBottom = -21, innerEdgeTop = -5;
constexpr int faceBottom = -5, faceTop = 5;
constexpr int firstLine = -32, secondLine = -22, lowerLine = -24, thirdLine = -15;
constexpr int topLeft = -48;  // for both pixels of this corner
constexpr int bottomLeftSide = -5, bottomLeftEnd = -16;
constexpr int bottomRightSide = 18, bottomRightEnd = 8;
constexpr int topRightSide = -48, topRightEnd = -37;
constexpr int border = -128;
constexpr int corner = -96;
}  // namespace sunken

namespace disabled {
constexpr int upperBorder = -64, lowerBorder = -53;
}

namespace ring {
constexpr int top = 85, secondTop = 69, lower = 16, sides = 69;
}

// Constants of paintSystem(): amounts of white, and shifts of the face and shadow colours.
namespace plain {
constexpr int topWhite = 190;
constexpr int bottomShift = -14;
constexpr int lowerShift = -30;
constexpr int pressedTop = -34, pressedBottom = -16;
constexpr int borderShift = -96;
constexpr int disabledWhite = 100, disabledBorderWhite = 90;
constexpr int hotTopWhite = 130, hotBottomWhite = 40;
constexpr int focusTopWhite = 200, focusBottomWhite = 120;
}  // namespace plain

Size sizeOf(PixelView face) {
    return {face.width(), face.height()};
}

// Draws the four outermost lines, each without the two pixels at either end.
void border(PixelView face, Rgb top, Rgb left, Rgb bottom, Rgb right) {
    const auto [w, h] = sizeOf(face);
    face.line(2, 0, w - 2, 0, top);
    face.line(0, 2, 0, h - 2, left);
    face.line(2, h - 1, w - 2, h - 1, bottom);
    face.line(w - 1, 2, w - 1, h - 2, right);
}

void diagonalPixels(PixelView face, Rgb colour) {
    const auto [w, h] = sizeOf(face);
    face.pixel(1, 1, colour);
    face.pixel(1, h - 2, colour);
    face.pixel(w - 2, 1, colour);
    face.pixel(w - 2, h - 2, colour);
}

void cornerPixels(PixelView face, Rgb colour) {
    const auto [w, h] = sizeOf(face);
    face.pixel(1, 0, colour);
    face.pixel(w - 2, 0, colour);
    face.pixel(0, 1, colour);
    face.pixel(0, h - 2, colour);
    face.pixel(1, h - 1, colour);
    face.pixel(w - 2, h - 1, colour);
    face.pixel(w - 1, 1, colour);
    face.pixel(w - 1, h - 2, colour);
}

// Draws a ring, two pixels wide, inside the border. It is brightest along the top.
void highlightRing(PixelView face, Rgb base) {
    const auto [w, h] = sizeOf(face);
    const Rgb sides = shift(base, ring::sides);
    face.line(2, 1, w - 2, 1, shift(base, ring::top));
    face.line(1, 2, w - 1, 2, shift(base, ring::secondTop));
    face.line(2, h - 2, w - 2, h - 2, shift(base, ring::lower));
    face.line(1, h - 3, w - 1, h - 3, sides);
    face.line(1, 3, 1, h - 3, sides);
    face.line(2, 3, 2, h - 3, sides);
    face.line(w - 2, 3, w - 2, h - 3, sides);
    face.line(w - 3, 3, w - 3, h - 3, sides);
}

void paintRaised(PixelView face, const FacePlan& plan, Rgb base) {
    const auto [w, h] = sizeOf(face);
    face.gradient({1, 1, w - 1, h - 2}, shift(base, raised::faceTop),
                  shift(base, raised::faceBottom));
    face.gradient({w - 3, 2, w - 2, h - 2}, shift(base, raised::innerEdgeTop),
                  shift(base, raised::innerEdgeBottom));
    face.gradient({w - 2, 1, w - 1, h - 2}, shift(base, raised::outerEdgeTop),
                  shift(base, raised::outerEdgeBottom));
    face.line(1, h - 4, w - 1, h - 4, shift(base, raised::thirdLine));
    face.line(1, h - 3, w - 1, h - 3, shift(base, raised::secondLine));
    face.line(1, h - 2, w - 1, h - 2, shift(base, raised::lastLine));
    const Rgb dark = shift(base, raised::border);
    border(face, dark, dark, dark, dark);
    diagonalPixels(face, dark);
    cornerPixels(face, dark);
    if (plan.state == FaceState::Hot || plan.state == FaceState::Focused || plan.focusShown)
        highlightRing(face, plan.state == FaceState::Hot ? plan.colours.highlight
                                                         : plan.sys(HighlightColour));
}

void paintSunken(PixelView face, Rgb base) {
    const auto [w, h] = sizeOf(face);
    face.gradient({1, 1, 2, h - 1}, shift(base, sunken::outerEdgeTop),
                  shift(base, sunken::outerEdgeBottom));
    face.gradient({2, 2, 3, h - 1}, shift(base, sunken::innerEdgeTop),
                  shift(base, sunken::innerEdgeBottom));
    face.gradient({3, 3, w - 1, h - 1}, shift(base, sunken::faceTop),
                  shift(base, sunken::faceBottom));
    face.line(1, 1, w - 1, 1, shift(base, sunken::firstLine));
    face.line(2, 2, w - 1, 2, shift(base, sunken::secondLine));
    face.line(2, h - 2, w - 1, h - 2, shift(base, sunken::lowerLine));
    face.line(3, 3, w - 1, 3, shift(base, sunken::thirdLine));

    face.pixel(1, 2, shift(base, sunken::topLeft));
    face.pixel(2, 1, shift(base, sunken::topLeft));
    face.pixel(1, h - 3, shift(base, sunken::bottomLeftSide));
    face.pixel(2, h - 2, shift(base, sunken::bottomLeftEnd));
    face.pixel(w - 2, h - 3, shift(base, sunken::bottomRightSide));
    face.pixel(w - 3, h - 2, shift(base, sunken::bottomRightEnd));
    face.pixel(w - 3, 1, shift(base, sunken::topRightSide));
    face.pixel(w - 2, 2, shift(base, sunken::topRightEnd));

    const Rgb dark = shift(base, sunken::border);
    border(face, dark, dark, dark, dark);
    cornerPixels(face, shift(base, sunken::corner));
    diagonalPixels(face, base);
}

void paintDisabled(PixelView face, Rgb base) {
    const auto [w, h] = sizeOf(face);
    const Rgb upper = shift(base, disabled::upperBorder);
    const Rgb lower = shift(base, disabled::lowerBorder);
    border(face, upper, upper, lower, lower);
    for (const int x : {0, w - 1})
        for (const int y : {0, h - 1}) face.pixel(x, y, base);
    diagonalPixels(face, base);
    cornerPixels(face, base);
}

}  // namespace

void paintPolished(PixelView face, const FacePlan& plan) {
    const Rgb base = plan.colours.back;
    face.fill(face.rect(), base);
    switch (plan.state) {
        case FaceState::Pressed: paintSunken(face, base); break;
        case FaceState::Disabled: paintDisabled(face, base); break;
        default: paintRaised(face, plan, base); break;
    }
}

// Paints the shape of paintPolished() in system colours: a face that is nearly white at the top, a
// frame in the shadow colour and, for hover and focus, a ring in the selection colour.
void paintSystem(PixelView face, const FacePlan& plan) {
    const auto [w, h] = sizeOf(face);
    const Rgb base = plan.sys(ButtonFaceColour);
    const Rgb shadow = plan.sys(ButtonShadowColour);
    const Rgb accent = plan.sys(HighlightColour);
    Rgb frame = shift(shadow, plain::borderShift);
    face.fill(face.rect(), base);
    const Rect inner{1, 1, w - 1, h - 1};
    switch (plan.state) {
        case FaceState::Pressed:
            face.gradient(inner, shift(base, plain::pressedTop), shift(base, plain::pressedBottom));
            break;
        case FaceState::Disabled:
            face.fill(inner, lighten(base, plain::disabledWhite));
            frame = lighten(shadow, plain::disabledBorderWhite);
            break;
        default:
            face.gradient(inner, lighten(base, plain::topWhite), shift(base, plain::bottomShift));
            face.line(2, h - 2, w - 2, h - 2, shift(base, plain::lowerShift));
            break;
    }
    const bool hot = plan.state == FaceState::Hot;
    const bool focused = plan.state == FaceState::Focused;
    if (hot || focused) {
        const Rgb top = lighten(accent, hot ? plain::hotTopWhite : plain::focusTopWhite);
        const Rgb bottom = lighten(accent, hot ? plain::hotBottomWhite : plain::focusBottomWhite);
        for (const int inset : {1, 2}) {
            face.line(inset, inset, w - inset, inset, top);
            face.gradient({inset, inset + 1, inset + 1, h - inset}, top, bottom);
            face.gradient({w - inset - 1, inset + 1, w - inset, h - inset}, top, bottom);
            face.line(inset, h - 1 - inset, w - inset, h - 1 - inset, bottom);
        }
    }
    border(face, frame, frame, frame, frame);
    diagonalPixels(face, frame);
    cornerPixels(face, average(frame, plan.surroundings));
}

}  // namespace velvox
