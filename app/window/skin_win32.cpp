#include "app/window/skin_win32.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "app/form1/skin_palette.h"
#include "app/resource.h"
#include "base/system_win32.h"
#include "base/twips.h"

namespace velvox {
namespace {

constexpr int pictureResolutions[] = {96, 120, 144, 192};

// Distances in twips between the edges of the result area and the panel that is drawn in it.
constexpr int areaMarginTop = 60;
constexpr int areaMarginRight = 90;
constexpr int areaMarginBottom = 90;

// Opacity of inactiveOverlay over an inactive title bar; 255 is opaque.
constexpr BYTE overlayStrength = 150;

void frame(HDC dc, RECT area, Rgb colour) {
    const OwnedBrush brush(CreateSolidBrush(static_cast<COLORREF>(colour)));
    for (int i = thinLine(); i > 0; --i) {
        FrameRect(dc, &area, brush.get());
        InflateRect(&area, -1, -1);
    }
}

void drawInactiveOverlay(HDC dc, const RECT& area) {
    const OwnedMemoryDc memory(CreateCompatibleDC(dc));
    const OwnedBitmap pixel(CreateCompatibleBitmap(dc, 1, 1));
    const ScopedSelectObject selected(memory.get(), pixel.get());
    SetPixelV(memory.get(), 0, 0, static_cast<COLORREF>(palette::inactiveOverlay));
    GdiAlphaBlend(dc, area.left, area.top, area.right - area.left, area.bottom - area.top,
                  memory.get(), 0, 0, 1, 1, {AC_SRC_OVER, 0, overlayStrength, 0});
}

Rgb systemRgb(int index) {
    return static_cast<Rgb>(GetSysColor(index));
}

}  // namespace

struct Skin::Surfaces {
    Rgb form, edge, inactiveEdge, area, areaEdge, strip, lineDark, lineLight;
};

Skin::Skin(Contrast contrast)
    : contrast_(contrast),
      corner_(load(IDB_TITLE_CORNER)),
      bar_(load(IDB_TITLE_BAR)),
      end_(load(IDB_TITLE_END)) {}

Skin::Contrast Skin::systemContrast() {
    return highContrast() ? Contrast::High : Contrast::Normal;
}

Skin::Picture Skin::load(int piece) {
    const int dpi = screenDpi();
    const int nearest =
        *std::min_element(std::begin(pictureResolutions), std::end(pictureResolutions),
                          [dpi](int a, int b) { return std::abs(a - dpi) < std::abs(b - dpi); });
    const OwnedBitmap stored(static_cast<HBITMAP>(
        LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(piece + nearest), IMAGE_BITMAP, 0, 0,
                   LR_CREATEDIBSECTION)));
    if (!stored) throwLastError("LoadImage");
    BITMAP facts{};
    GetObjectW(stored.get(), sizeof facts, &facts);
    // The picture is drawn often, and converting its 256 colours each time would take longer than
    // the drawing.
    Picture picture{createPixels(facts.bmWidth, facts.bmHeight), {facts.bmWidth, facts.bmHeight}};
    const OwnedMemoryDc from(CreateCompatibleDC(nullptr)), to(CreateCompatibleDC(nullptr));
    const ScopedSelectObject source(from.get(), stored.get()),
        target(to.get(), picture.bitmap.get());
    BitBlt(to.get(), 0, 0, facts.bmWidth, facts.bmHeight, from.get(), 0, 0, SRCCOPY);
    return picture;
}

Skin::Surfaces Skin::surfaces() const {
    if (contrast_ == Contrast::Normal)
        return {palette::form,     palette::titleEdge, palette::inactiveOverlay,
                palette::area,     palette::areaEdge,  palette::strip,
                palette::lineDark, palette::lineLight};
    const Rgb back = systemRgb(COLOR_WINDOW);
    const Rgb text = systemRgb(COLOR_WINDOWTEXT);
    return {back, text, text, back, text, back, text, back};
}

void Skin::draw(HDC dc, Piece piece, const RECT& area) const {
    // Labels make the form paint their backgrounds. Each time, most pieces are outside the clip
    // region.
    if (!RectVisible(dc, &area)) return;
    const Surfaces colours = surfaces();
    switch (piece) {
        case Piece::Icon:
        case Piece::Bar:
        case Piece::RightEnd:
            if (contrast_ == Contrast::High)
                drawContrastTitle(dc, piece, area);
            else
                drawTitle(dc, piece, area);
            break;
        case Piece::Form:
            fill(dc, area, colours.form);
            frame(dc, area, active_ ? colours.edge : colours.inactiveEdge);
            break;
        case Piece::NewsStrip: fill(dc, area, colours.strip); break;
        case Piece::ResultArea: {
            fill(dc, area, colours.form);
            const RECT panel{area.left, area.top + toPixels(areaMarginTop),
                             area.right - toPixels(areaMarginRight),
                             area.bottom - toPixels(areaMarginBottom)};
            fill(dc, panel, colours.area);
            frame(dc, panel, colours.areaEdge);
            break;
        }
    }
}

void Skin::drawTitle(HDC dc, Piece piece, const RECT& area) const {
    const Picture& picture = piece == Piece::Icon ? corner_ : piece == Piece::Bar ? bar_ : end_;
    const OwnedMemoryDc memory(CreateCompatibleDC(dc));
    const ScopedSelectObject selected(memory.get(), picture.bitmap.get());
    // The bar's picture is one column that is repeated and needs no smoothing. The other pictures
    // need smoothing if they are scaled to another resolution.
    const SIZE size{area.right - area.left, area.bottom - area.top};
    const bool scaled = size.cx != picture.size.cx || size.cy != picture.size.cy;
    SetStretchBltMode(dc, piece != Piece::Bar && scaled ? HALFTONE : COLORONCOLOR);
    SetBrushOrgEx(dc, 0, 0, nullptr);
    StretchBlt(dc, area.left, area.top, size.cx, size.cy, memory.get(), 0, 0, picture.size.cx,
               picture.size.cy, SRCCOPY);
    if (!active_) drawInactiveOverlay(dc, area);
}

void Skin::drawContrastTitle(HDC dc, Piece piece, const RECT& area) const {
    fill(dc, area, systemRgb(active_ ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION));
    if (piece != Piece::Icon) return;
    const int width = GetSystemMetrics(SM_CXSMICON);
    const int height = GetSystemMetrics(SM_CYSMICON);
    const auto icon =
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_VELVOX),
                                      IMAGE_ICON, width, height, LR_SHARED));
    DrawIconEx(dc, (area.left + area.right - width) / 2, (area.top + area.bottom - height) / 2,
               icon, width, height, 0, nullptr, DI_NORMAL);
}

void Skin::drawLine(HDC dc, int number, POINT from, POINT to) const {
    const bool upright = from.x == to.x;
    const RECT line{from.x, from.y, to.x + (upright ? thinLine() : 0),
                    to.y + (upright ? 0 : thinLine())};
    fill(dc, line, number % 2 == 0 ? surfaces().lineLight : surfaces().lineDark);
}

Rgb Skin::textColour(TextRole role, OleColour designed) const {
    if (contrast_ == Contrast::Normal) return translate(designed, CurrentSystemColours());
    switch (role) {
        case TextRole::Link:
            return legible(systemRgb(COLOR_HOTLIGHT), systemRgb(COLOR_WINDOW), highTextContrast);
        case TextRole::Title:
            return legible(systemRgb(active_ ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT),
                           systemRgb(active_ ? COLOR_ACTIVECAPTION : COLOR_INACTIVECAPTION),
                           textContrast);
        default: return systemRgb(COLOR_WINDOWTEXT);
    }
}

}  // namespace velvox
