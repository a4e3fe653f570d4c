#include "app/skin_win32.h"

#include "base/colour.h"
#include "base/owned_win32.h"

namespace velvox {
namespace {

constexpr Rgb titleTop = rgb(74, 118, 168);
constexpr Rgb titleBottom = rgb(43, 78, 122);
constexpr Rgb formColour = rgb(240, 243, 247);
constexpr Rgb areaColour = rgb(250, 251, 253);
constexpr Rgb areaBorder = rgb(170, 184, 202);
constexpr Rgb stripColour = rgb(228, 234, 241);
constexpr Rgb lineDark = rgb(200, 209, 220);
constexpr Rgb lineLight = rgb(255, 255, 255);

void fill(HDC dc, const RECT& area, Rgb colour) {
    const OwnedBrush brush(CreateSolidBrush(static_cast<COLORREF>(colour)));
    FillRect(dc, &area, brush.get());
}

TRIVERTEX vertex(LONG x, LONG y, Rgb colour) {
    return {x,
            y,
            static_cast<COLOR16>(redOf(colour) << 8),
            static_cast<COLOR16>(greenOf(colour) << 8),
            static_cast<COLOR16>(blueOf(colour) << 8),
            0};
}

void gradient(HDC dc, const RECT& area, Rgb top, Rgb bottom) {
    TRIVERTEX corners[] = {vertex(area.left, area.top, top),
                           vertex(area.right, area.bottom, bottom)};
    GRADIENT_RECT whole{0, 1};
    GradientFill(dc, corners, 2, &whole, 1, GRADIENT_FILL_RECT_V);
}

}  // namespace

void Skin::draw(HDC dc, Piece piece, const RECT& area) const {
    switch (piece) {
        case Piece::Icon:
        case Piece::Bar:
        case Piece::RightEnd: gradient(dc, area, titleTop, titleBottom); break;
        case Piece::Form: fill(dc, area, formColour); break;
        case Piece::NewsStrip: fill(dc, area, stripColour); break;
        case Piece::ResultArea: {
            fill(dc, area, areaColour);
            const OwnedBrush border(CreateSolidBrush(areaBorder));
            FrameRect(dc, &area, border.get());
            break;
        }
    }
}

void Skin::drawLine(HDC dc, int number, POINT from, POINT to) const {
    const RECT line{from.x, from.y, to.x, to.y + 1};
    fill(dc, line, number % 2 == 0 ? lineLight : lineDark);
}

}  // namespace velvox
