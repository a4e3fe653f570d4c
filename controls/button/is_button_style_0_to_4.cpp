// Styles 0 to 4: plain faces with edges and frames.
#include "controls/button/is_button_paint.h"

namespace velvox {
namespace {

// Amounts of white added to the flat style's faces and outlines.
constexpr int flatFaceWhite = 96;
constexpr int flatDisabledWhite = 64;
constexpr int flatHotWhite = 190;
constexpr int flatPressedWhite = 128;
constexpr int flatOutlineWhite = 40;
constexpr int flatDisabledOutlineWhite = 110;
// With custom colours, the flat style's outline is the face colour shifted by this amount.
constexpr int flatOutlineShade = -72;

void outline(PixelView face, Rgb colour) {
    face.frame(0, 0, face.width() - 1, face.height() - 1, colour);
}

// Face colour of styles 0 to 2. With custom colours, a button that is not at rest has the highlight
// colour. A disabled button is at rest in styles 1 and 2 only.
Rgb plainFace(const FacePlan& plan, bool atRest) {
    return atRest ? plan.back() : plan.highlight(ButtonFaceColour);
}

// Lightens a face that carries the caption. With system colours, the amount is halved until the
// caption is legible, because dark schemes have light captions. If no amount makes it legible, the
// full amount or none is used, whichever has the higher contrast.
Rgb lightFace(const FacePlan& plan, Rgb colour, int white) {
    const Rgb full = lighten(colour, white);
    if (plan.customColours) return full;
    const Rgb text = plan.sys(ButtonTextColour);
    for (; white > 0; white /= 2) {
        const Rgb face = lighten(colour, white);
        if (contrast(text, face) >= textContrast) return face;
    }
    return contrast(text, full) > contrast(text, colour) ? full : colour;
}

bool isNormalOrDisabled(FaceState state) {
    return state == FaceState::Normal || state == FaceState::Disabled;
}

}  // namespace

void paintEdged(PixelView face, const FacePlan& plan, ButtonDrawing& system) {
    face.fill(face.rect(), plainFace(plan, plan.state == FaceState::Normal));
    system.edge(plan.state == FaceState::Pressed ? ButtonEdge::Sunken : ButtonEdge::Raised);
}

void paintThin(PixelView face, const FacePlan& plan, ButtonDrawing& system) {
    face.fill(face.rect(), plainFace(plan, isNormalOrDisabled(plan.state)));
    switch (plan.state) {
        case FaceState::Pressed: system.edge(ButtonEdge::OuterSunken); break;
        case FaceState::Disabled: outline(face, plan.sys(ButtonShadowColour)); break;
        default: system.edge(ButtonEdge::InnerRaised); break;
    }
}

// A focused button has no outline, because the dotted rectangle inside shows the focus.
void paintTool(PixelView face, const FacePlan& plan, ButtonDrawing& system) {
    face.fill(face.rect(), plainFace(plan, isNormalOrDisabled(plan.state)));
    switch (plan.state) {
        case FaceState::Normal:
        case FaceState::Disabled: outline(face, plan.sys(ButtonFaceColour)); break;
        case FaceState::Hot: system.edge(ButtonEdge::InnerRaised); break;
        case FaceState::Pressed: system.edge(ButtonEdge::OuterSunken); break;
        case FaceState::Focused: break;
    }
}

// Paints a solid face in a shadow-coloured frame with softened corners. Inside the frame, a line of
// the system's window colour runs along the top and left sides, or along the bottom and right sides
// while the button is pressed.
void paintSolid(PixelView face, const FacePlan& plan) {
    const int right = face.width() - 1;
    const int bottom = face.height() - 1;
    Rgb fill = plan.back();
    if (plan.state == FaceState::Hot)
        fill = average(plan.highlight(ButtonShadowColour), plan.back());
    if (plan.state == FaceState::Pressed) fill = plan.highlight(ButtonShadowColour);
    face.fill(face.rect(), fill);

    const Rgb dark = plan.sys(ButtonShadowColour);
    const Rgb light = plan.sys(WindowColour);
    if (plan.state == FaceState::Pressed) {
        face.line(1, bottom - 1, right, bottom - 1, light);
        face.line(right - 1, 1, right - 1, bottom, light);
    } else if (plan.state != FaceState::Disabled) {
        face.line(1, 1, right, 1, light);
        face.line(1, 1, 1, bottom, light);
    }
    face.frame(0, 0, right, bottom, dark);
    const Rgb soft = average(dark, plan.surroundings);
    for (const int x : {0, right})
        for (const int y : {0, bottom}) face.pixel(x, y, soft);
}

void paintFlat(PixelView face, const FacePlan& plan) {
    const Rgb back = plan.back();
    const Rgb accent = plan.highlight(HighlightColour);
    const Rgb edgeBase =
        plan.customColours ? shift(back, flatOutlineShade) : plan.sys(ButtonShadowColour);
    // A custom highlight colour may equal the face colour, so its outline is made darker to stay
    // visible.
    const Rgb accentEdge = plan.customColours ? shift(accent, flatOutlineShade) : accent;
    Rgb fill = lightFace(plan, back, flatFaceWhite);
    Rgb frame = lighten(edgeBase, flatOutlineWhite);
    switch (plan.state) {
        case FaceState::Hot:
            fill = lightFace(plan, accent, flatHotWhite);
            frame = accentEdge;
            break;
        case FaceState::Pressed:
            fill = lightFace(plan, accent, flatPressedWhite);
            frame = accentEdge;
            break;
        case FaceState::Disabled:
            fill = lighten(back, flatDisabledWhite);
            frame = lighten(edgeBase, flatDisabledOutlineWhite);
            break;
        default: break;
    }
    face.fill(face.rect(), fill);
    outline(face, frame);
}

}  // namespace velvox
