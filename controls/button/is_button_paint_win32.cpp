#include "controls/button/is_button_paint_win32.h"

#include <vector>

#include "base/system_win32.h"
#include "controls/button/icon_picture_win32.h"
#include "controls/button/is_button_layout.h"

namespace velvox {
namespace {

static_assert(static_cast<UINT>(ButtonEdge::OuterSunken) == BDR_SUNKENOUTER);
static_assert(static_cast<UINT>(ButtonEdge::InnerRaised) == BDR_RAISEDINNER);
static_assert(static_cast<UINT>(ButtonEdge::Raised) == EDGE_RAISED);
static_assert(static_cast<UINT>(ButtonEdge::Sunken) == EDGE_SUNKEN);
static_assert(BF_RECT == 15);

class SystemButtonDrawing : public ButtonDrawing {
 public:
    SystemButtonDrawing(const ButtonFace& face, HWND window, ThemeLibrary& themes)
        : dc_(face.dc()),
          area_{0, 0, face.pixels().width(), face.pixels().height()},
          window_(window),
          themes_(themes) {}

    void edge(ButtonEdge kind) override {
        RECT area = area_;
        DrawEdge(dc_, &area, static_cast<UINT>(kind), BF_RECT);
        GdiFlush();
    }

    bool themedFace(FaceState state) override {
        const bool drawn = themes_.drawPushButton(window_, dc_, static_cast<int>(state), area_);
        GdiFlush();
        return drawn;
    }

    void caption(const ButtonLook& look, const Rect& at, Rgb colour) override {
        const OwnedFont font = createFont(look.font);
        const ScopedSelectObject selected(dc_, font.get());
        const int mode = SetBkMode(dc_, TRANSPARENT);
        const COLORREF saved = SetTextColor(dc_, static_cast<COLORREF>(colour));
        RECT area{at.left, at.top, at.right, at.bottom};
        DrawTextW(dc_, widen(look.caption).c_str(), -1, &area, look.captionFlags);
        SetTextColor(dc_, saved);
        SetBkMode(dc_, mode);
        GdiFlush();
    }

    void icon(const Picture& picture, Point corner, int size) override {
        const auto* drawable = dynamic_cast<const DrawablePicture*>(&picture);
        if (drawable) drawable->draw(dc_, corner.x, corner.y, size, size);
        GdiFlush();
    }

 private:
    HDC dc_;
    RECT area_;
    HWND window_;
    ThemeLibrary& themes_;
};

OwnedRegion magnified(const OwnedRegion& region, int factor) {
    std::vector<char> bytes(GetRegionData(region.get(), 0, nullptr));
    auto* const data = reinterpret_cast<RGNDATA*>(bytes.data());
    const auto size = static_cast<DWORD>(bytes.size());
    if (size == 0 || GetRegionData(region.get(), size, data) == 0) return {};
    const auto* const rectangles = reinterpret_cast<const RECT*>(data->Buffer);
    OwnedRegion result(CreateRectRgn(0, 0, 0, 0));
    for (DWORD i = 0; i < data->rdh.nCount; ++i) {
        const RECT& small = rectangles[i];
        const OwnedRegion part(CreateRectRgn(small.left * factor, small.top * factor,
                                             small.right * factor, small.bottom * factor));
        CombineRgn(result.get(), result.get(), part.get(), RGN_OR);
    }
    return result;
}

}  // namespace

bool paintButton(const ButtonFace& face, const ButtonLook& look, const ButtonScene& scene,
                 HWND window, ThemeLibrary& themes) {
    SystemButtonDrawing system(face, window, themes);
    return paintButton(face.pixels(), look, scene, system);
}

OwnedRegion buttonRegion(int style, int width, int height, int lineWidth) {
    if (lineWidth > 1)
        return magnified(buttonRegion(style, (width + lineWidth - 1) / lineWidth,
                                      (height + lineWidth - 1) / lineWidth),
                         lineWidth);
    const ButtonOutline outline = outlineOf(style, width, height);
    if (const auto* points = std::get_if<PolygonOutline>(&outline)) {
        POINT corners[8];
        for (std::size_t i = 0; i < points->size(); ++i)
            corners[i] = {(*points)[i].x, (*points)[i].y};
        return OwnedRegion(CreatePolygonRgn(corners, 8, ALTERNATE));
    }
    if (const auto* round = std::get_if<RoundOutline>(&outline))
        // CreateRoundRectRgn leaves out the last column and row.
        return OwnedRegion(
            CreateRoundRectRgn(0, 0, width + 1, height + 1, round->ellipse, round->ellipse));
    return OwnedRegion(CreateRectRgn(0, 0, width, height));
}

}  // namespace velvox
