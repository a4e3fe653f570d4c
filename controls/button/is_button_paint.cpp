#include "controls/button/is_button_paint.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace velvox {
namespace {

constexpr Rgb shadowGrey = 0x808080;
constexpr int pressedShift = 1;
constexpr int liftedShift = -2;
constexpr int shadowStyle = 4;
constexpr int themedStyle = 6;

// Weight of a disabled icon's greys over the face: disabledParts of disabledOf.
constexpr int disabledParts = 2;
constexpr int disabledOf = 5;

// Distance of the focus rectangle from the left and right edges (x) and from the top and bottom
// edges (y), in thin lines. The rectangle lies inside the frames.
struct CueInset {
    int x;
    int y;
};
constexpr CueInset plainCue{4, 4};
constexpr CueInset framedCue{6, 6};
constexpr CueInset pillCue{12, 5};

// Whether the style's painter draws a focus ring itself. Style 5 draws none for a pressed, toggled
// or disabled button, because these faces have no room for one.
bool hasOwnRing(int style, ButtonState state) {
    if (style == 5) return state == ButtonState::Normal || state == ButtonState::Hot;
    return style >= 7 && style <= 10;
}

CueInset cueInset(int style) {
    if (style == 9) return framedCue;
    if (style == 10) return pillCue;
    return plainCue;
}

FaceState faceState(const ButtonLook& look) {
    const bool focused = look.style == themedStyle ? look.focused : look.focusShown;
    if (look.state == ButtonState::Normal && focused) return FaceState::Focused;
    return static_cast<FaceState>(look.state);
}

// Paints the styles that need no drawing calls of the system.
void paintPixels(PixelView face, const FacePlan& plan, int style) {
    face.fill(face.rect(), plan.sys(ButtonFaceColour));
    switch (style) {
        case 3: paintSolid(face, plan); break;
        case 4: paintFlat(face, plan); break;
        case 5: (plan.customColours ? paintPolished : paintSystem)(face, plan); break;
        case 7: paintGlass(face, plan); break;
        case 8: paintBrushed(face, plan); break;
        case 9: paintPorcelain(face, plan); break;
        case 10: paintPill(face, plan); break;
        default: break;
    }
}

// Where a thin line is several pixels wide (high DPI), a face is painted smaller by that factor and
// then magnified, because frames, rings and round corners keep their shape this way.
void paintMagnified(PixelView face, const FacePlan& plan, int style, int factor) {
    const int width = (face.width() + factor - 1) / factor;
    const int height = (face.height() + factor - 1) / factor;
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) *
                                      static_cast<std::size_t>(height));
    const PixelView small(pixels.data(), width, height);
    paintPixels(small, plan, style);
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x) face.pixel(x, y, small.at(x / factor, y / factor));
}

bool paintFace(PixelView face, const ButtonLook& look, const ButtonScene& scene,
               ButtonDrawing& system) {
    const FacePlan plan{faceState(look), look.focusShown, look.customColours,
                        look.colours,    scene.colours,   scene.surroundings};
    if (scene.lineWidth > 1)
        paintMagnified(face, plan, look.style, scene.lineWidth);
    else
        paintPixels(face, plan, look.style);
    switch (look.style) {
        case 0: paintEdged(face, plan, system); break;
        case 1: paintThin(face, plan, system); break;
        case 2: paintTool(face, plan, system); break;
        case 6: return system.themedFace(plan.state);
        default: break;
    }
    return true;
}

Rgb captionColour(const ButtonLook& look, const SystemColours& system) {
    if (look.state == ButtonState::Disabled) return system.colour(GrayTextColour);
    if (!look.customColours) return system.colour(ButtonTextColour);
    return look.state == ButtonState::Normal ? look.colours.font : look.colours.fontHighlight;
}

// Calls `change` for each pixel of a square that lies on the face. A stored icon size may be any
// number, so 64-bit arithmetic clips the square before the loops.
template <class Change>
void eachPixel(PixelView face, Point corner, std::int64_t size, Change change) {
    const auto end = [size](int start, int limit) {
        return static_cast<int>(std::min<std::int64_t>(start + size, limit));
    };
    for (int y = std::max(corner.y, 0); y < end(corner.y, face.height()); ++y)
        for (int x = std::max(corner.x, 0); x < end(corner.x, face.width()); ++x) change(x, y);
}

// Paints the icon in greys that are partly blended into the face.
void paintDisabledIcon(PixelView face, const Picture& icon, Point at, int size,
                       ButtonDrawing& system) {
    std::vector<Rgb> before;
    eachPixel(face, at, size, [&](int x, int y) { before.push_back(face.at(x, y)); });
    system.icon(icon, at, size);
    std::size_t next = 0;
    eachPixel(face, at, size, [&](int x, int y) {
        const Rgb under = before[next++];
        const Rgb over = face.at(x, y);
        if (over == under) return;
        const int light = (redOf(over) * 3 + greenOf(over) * 6 + blueOf(over)) / 10;
        face.pixel(x, y, blend(under, rgb(light, light, light), disabledParts, disabledOf + 1));
    });
}

void paintIcon(PixelView face, const ButtonLook& look, int lineWidth, ButtonDrawing& system) {
    const int size = look.iconSize;
    if (!look.icon || !look.icon->hasImage() || size <= 0) return;
    const Picture& icon = *look.icon;
    Point at = iconPlace(look.iconAlign, face.width(), face.height(), size, iconMargin(look.style));
    if (look.state == ButtonState::Disabled) return paintDisabledIcon(face, icon, at, size, system);
    if (look.state == ButtonState::Pressed) at = {at.x + pressedShift, at.y + pressedShift};
    if (look.state == ButtonState::Hot && look.style == shadowStyle) {
        const Rgb plain = face.at(lineWidth, lineWidth);  // inside the frame
        system.icon(icon, at, size);
        // The square includes its right and bottom edges: one column and one row more than the
        // icon.
        eachPixel(face, at, std::int64_t{size} + 1, [&](int x, int y) {
            if (face.at(x, y) != plain) face.pixel(x, y, shadowGrey);
        });
        at = {at.x + liftedShift, at.y + liftedShift};
    }
    system.icon(icon, at, size);
}

// Draws a dotted rectangle: every other dot of `size` pixels, blended half and half with `colour`.
void paintFocusCue(PixelView face, CueInset inset, Rgb colour, int size) {
    const int right = face.width() / size - 1 - inset.x;
    const int bottom = face.height() / size - 1 - inset.y;
    const auto dot = [&](int column, int row) {
        if ((column + row) % 2 != 0) return;
        eachPixel(face, {column * size, row * size}, size,
                  [&](int x, int y) { face.pixel(x, y, average(face.at(x, y), colour)); });
    };
    for (int x = inset.x; x <= right; ++x) dot(x, inset.y), dot(x, bottom);
    for (int y = inset.y + 1; y < bottom; ++y) dot(inset.x, y), dot(right, y);
}

}  // namespace

bool paintButton(PixelView face, const ButtonLook& look, const ButtonScene& scene,
                 ButtonDrawing& system) {
    const bool drawn = paintFace(face, look, scene, system);
    const Rgb ink = captionColour(look, scene.colours);
    if (!look.caption.empty()) system.caption(look, captionRect(face.width(), face.height()), ink);
    paintIcon(face, look, scene.lineWidth, system);
    if (scene.focusCue || (look.focusShown && !hasOwnRing(look.style, look.state)))
        paintFocusCue(face, cueInset(look.style), ink, std::max(scene.lineWidth, 1));
    return drawn;
}

}  // namespace velvox
