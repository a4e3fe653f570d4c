#include "gallery/surface_page_win32.h"

#include <array>
#include <cmath>
#include <utility>

#include "base/system_win32.h"
#include "controlkit/scroll_look.h"
#include "gallery/sheet_win32.h"

namespace velvox {
namespace {

/// Lengths in pixels of a 96 dpi screen.
constexpr struct {
    int margin = 12;
    int captionHeight = 20;
    int padding = 10;  // between a card's edge and its drawing
    int columns = 3;
    int rows = 3;
    double captionPoints = 11;
} sizes;

constexpr OleColour ink = rgb(0x1F, 0x2A, 0x44);
constexpr OleColour paper = rgb(255, 255, 255);
constexpr OleColour cardBorder = rgb(0xC4, 0xCB, 0xDA);
constexpr OleColour blue = rgb(0x2F, 0x6F, 0xD0);
constexpr OleColour teal = rgb(0x16, 0x9B, 0x8F);
constexpr OleColour orange = rgb(0xE8, 0x85, 0x1C);
constexpr OleColour crimson = rgb(0xC2, 0x2F, 0x4E);
constexpr OleColour pale = rgb(0xE4, 0xEC, 0xF8);

int width(const RECT& r) {
    return r.right - r.left;
}
int height(const RECT& r) {
    return r.bottom - r.top;
}

/// Start of part `index` when a length is divided into `count` equal parts with a gap between them.
int partStart(int start, int length, int gap, int count, int index) {
    return start + (length + gap) * index / count;
}
RECT column(const RECT& area, int gap, int count, int index) {
    return {partStart(area.left, width(area), gap, count, index), area.top,
            partStart(area.left, width(area), gap, count, index + 1) - gap, area.bottom};
}
RECT row(const RECT& area, int gap, int count, int index) {
    return {area.left, partStart(area.top, height(area), gap, count, index), area.right,
            partStart(area.top, height(area), gap, count, index + 1) - gap};
}

void pen(clsVirtualDC& on, int style, int pixels, OleColour colour) {
    on.PenStyle(style);
    on.PenWidth(pixels);
    on.PenColor(colour);
}

void brush(clsVirtualDC& on, int style, OleColour colour, int hatch = 0) {
    on.BrushStyle(style);
    on.BrushColor(colour);
    on.BrushHatch(hatch);
}

void font(clsVirtualDC& on, double points) {
    Font wanted;
    wanted.points = points;
    on.Font(wanted);
}

void drawLines(clsVirtualDC& on, RECT area) {
    const RECT fan = column(area, scaled(12), 2, 0);
    constexpr int rays = 14;
    for (int i = 0; i <= rays; ++i) {
        pen(on, PS_SOLID, 1, i % 2 ? blue : teal);
        on.DrawLine(fan.left, fan.bottom - 1, fan.left + width(fan) * i / rays,
                    fan.top + height(fan) * i / rays);
    }
    const RECT list = column(area, scaled(12), 2, 1);
    const std::array styles{PS_SOLID, PS_DASH, PS_DOT, PS_DASHDOT};
    const std::array widths{2, 3, 5, 8};
    const std::array colours{crimson, orange, teal, blue};
    for (int i = 0; i < 4; ++i) {
        const auto at = static_cast<std::size_t>(i);
        const RECT line = row(list, 0, 8, i);
        pen(on, styles[at], 1, ink);
        on.DrawLine(line.left, (line.top + line.bottom) / 2, line.right,
                    (line.top + line.bottom) / 2);
        const RECT thick = row(list, 0, 8, i + 4);
        pen(on, PS_SOLID, scaled(widths[at]), colours[at]);
        on.DrawLine(thick.left + scaled(4), (thick.top + thick.bottom) / 2, thick.right - scaled(4),
                    (thick.top + thick.bottom) / 2);
    }
}

void drawGradients(clsVirtualDC& on, RECT area, int direction) {
    const std::array<std::pair<OleColour, OleColour>, 3> pairs{
        {{blue, pale}, {crimson, orange}, {rgb(0, 0, 0), rgb(255, 255, 255)}}};
    for (int i = 0; i < 3; ++i) {
        const RECT band =
            direction == 1 ? row(area, scaled(8), 3, i) : column(area, scaled(8), 3, i);
        const auto& [from, to] = pairs[static_cast<std::size_t>(i)];
        on.DrawGradient(from, to, band.left, band.top, width(band), height(band), direction);
    }
}

void drawShapes(clsVirtualDC& on, RECT area) {
    const auto cell = [&](int x, int y) {
        return row(column(area, scaled(12), 3, x), scaled(12), 2, y);
    };
    on.BkColor(pale);
    for (int y = 0; y < 2; ++y) {
        const int thick = y == 0 ? 1 : scaled(3);
        const RECT a = cell(0, y), b = cell(1, y), c = cell(2, y);
        pen(on, PS_SOLID, thick, blue);
        brush(on, y == 0 ? BS_SOLID : BS_HATCHED, y == 0 ? pale : blue, HS_BDIAGONAL);
        on.DrawEllipse(a.left, a.top, a.right, a.bottom);
        pen(on, PS_SOLID, thick, teal);
        brush(on, y == 0 ? BS_HOLLOW : BS_HATCHED, teal, HS_CROSS);
        on.DrawRectangle(b.left, b.top, b.right, b.bottom);
        pen(on, PS_SOLID, thick, crimson);
        brush(on, BS_SOLID, y == 0 ? orange : paper);
        on.DrawRoundRectangle(c.left, c.top, c.right, c.bottom, scaled(24), scaled(24));
    }
}

void drawEdges(clsVirtualDC& on, RECT area) {
    constexpr struct {
        const char* name;
        UINT edge;
    } edges[] = {{"Raised", EDGE_RAISED},
                 {"Sunken", EDGE_SUNKEN},
                 {"Etched", EDGE_ETCHED},
                 {"Bump", EDGE_BUMP}};
    on.ForeColor(systemColour(ButtonTextColour));
    font(on, sizes.captionPoints);
    for (int i = 0; i < 4; ++i) {
        RECT box = row(column(area, scaled(12), 2, i % 2), scaled(12), 2, i / 2);
        on.FillArea(box, systemColour(ButtonFaceColour));
        on.DrawEdge(box, edges[i].edge, BF_RECT);
        if (i == 0) {
            const int inset = scaled(5);
            on.DrawFocusRect(
                {box.left + inset, box.top + inset, box.right - inset, box.bottom - inset});
        }
        on.DrawText(edges[i].name, box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    }
}

void drawText(clsVirtualDC& on, RECT area) {
    Font sample;
    const auto write = [&](RECT& line, std::string_view words, OleColour colour) {
        on.Font(sample);
        on.ForeColor(colour);
        line.top += on.DrawText(words, line, DT_LEFT | DT_TOP | DT_SINGLELINE) + scaled(3);
    };
    sample.points = 20;
    write(area, "Twenty points", ink);
    sample.points = 13;
    sample.name = "Arial";
    RECT left = column(area, scaled(12), 2, 0);
    sample.bold = true;
    write(left, "Bold in blue", blue);
    sample.bold = false;
    sample.italic = true;
    write(left, "Italic in teal", teal);
    sample = {};
    sample.points = 13;
    write(left, "Plain Tahoma", ink);
    RECT right = column(area, scaled(12), 2, 1);
    sample.underline = true;
    write(right, "Underlined", crimson);
    sample.underline = false;
    sample.strikeThrough = true;
    write(right, "Struck through", orange);
    sample.strikeThrough = false;
    on.BackMode(OPAQUE);
    on.BkColor(ink);
    write(right, " On ink ", paper);
    on.BackMode(TRANSPARENT);
}

/// A copy of a small scene, which is drawn on a separate surface.
PicturePtr scene(int sceneWidth, int sceneHeight) {
    clsVirtualDC on;
    on.CreateMyDC(sceneWidth, sceneHeight);
    const int horizon = sceneHeight * 2 / 3;
    on.DrawGradient(rgb(0x3B, 0x7D, 0xD8), rgb(0xFC, 0xE3, 0xB6), 0, 0, sceneWidth, horizon, 0);
    on.DrawGradient(teal, ink, 0, horizon, sceneWidth, sceneHeight - horizon, 0);
    on.PenStyle(PS_NULL);
    brush(on, BS_SOLID, orange);
    const int sun = sceneHeight / 4;
    on.DrawEllipse(sceneWidth / 2 - sun, horizon - sun, sceneWidth / 2 + sun, horizon + sun);
    on.DrawGradient(teal, ink, 0, horizon, sceneWidth, sceneHeight - horizon, 0);
    const PicturePtr copy = on.Picture();
    // The copy is independent: this later drawing on the surface must not change it.
    on.FillArea({0, 0, sceneWidth, sceneHeight}, crimson);
    return copy;
}

void drawPictures(clsVirtualDC& on, RECT area) {
    const RECT large = column(area, scaled(8), 2, 0);
    const PicturePtr picture = scene(width(large), height(large));
    on.DrawImageToVirtualDC(picture, large.left, large.top);
    const RECT pieces = column(area, scaled(8), 2, 1);
    for (int i = 0; i < 4; ++i) {
        // The four quarters of the picture are drawn separately.
        const RECT to = row(column(pieces, scaled(8), 2, i % 2), scaled(8), 2, i / 2);
        on.DrawImageToVirtualDC(picture, to.left, to.top, width(to), height(to),
                                i % 2 * (width(large) - width(to)),
                                i / 2 * (height(large) - height(to)));
    }
}

void drawInversion(clsVirtualDC& on, RECT area) {
    on.DrawGradient(orange, blue, area.left, area.top, width(area), height(area), 1);
    constexpr int columns = 8;
    constexpr int rows = 5;
    for (int y = 0; y < rows; ++y)
        for (int x = y % 2; x < columns; x += 2)
            on.InvertArea(row(column(area, 0, columns, x), 0, rows, y));
    // Two adjacent cells get an outline. The right one of them is inverted a second time, which
    // restores the gradient there.
    const RECT middle = row(column(area, 0, columns, 3), 0, rows, 2);
    const RECT twice{middle.left, middle.top, middle.left + 2 * width(middle), middle.bottom};
    on.InvertArea(row(column(area, 0, columns, 4), 0, rows, 2));
    pen(on, PS_SOLID, scaled(2), paper);
    brush(on, BS_HOLLOW, 0);
    on.DrawRectangle(twice.left, twice.top, twice.right, twice.bottom);
}

void drawPixels(clsVirtualDC& on, RECT area) {
    const double scale = static_cast<double>(designDpi) / screenDpi();
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            const double u = (x - area.left) * scale;
            const double v = (y - area.top) * scale;
            const double wave = std::sin(u / 11) + std::sin(v / 7) + std::sin((u + v) / 17) +
                                std::sin(std::hypot(u - 90, v - 50) / 6);
            const auto channel = [&](double phase) {
                return static_cast<int>(127.5 + 127.5 * std::sin(wave * 1.4 + phase));
            };
            on.SetPixel(x, y,
                        static_cast<OleColour>(rgb(channel(0.2), channel(1.4), channel(2.6))));
        }
    // Pixels read by GetPixel on the left are written mirrored on the right.
    const int middle = (area.left + area.right) / 2;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < middle; ++x)
            on.SetPixel(area.right - 1 - (x - area.left), y,
                        static_cast<OleColour>(on.GetPixel(x, y)));
}

struct Card {
    std::string_view caption;
    void (*draw)(clsVirtualDC& on, RECT area);
};

constexpr Card cards[] = {
    {"Lines", drawLines},
    {"Gradient, left to right", [](clsVirtualDC& on, RECT area) { drawGradients(on, area, 1); }},
    {"Gradient, top to bottom", [](clsVirtualDC& on, RECT area) { drawGradients(on, area, 0); }},
    {"Shapes", drawShapes},
    {"Edges", drawEdges},
    {"Text", drawText},
    {"Picture copy and its parts", drawPictures},
    {"Inversion, once and twice", drawInversion},
    {"Single pixels, written and read", drawPixels},
};

void drawCard(clsVirtualDC& on, const Card& card, RECT area) {
    font(on, sizes.captionPoints);
    on.ForeColor(systemColour(WindowTextColour));
    RECT caption{area.left, area.top, area.right, area.top + scaled(sizes.captionHeight)};
    on.DrawText(card.caption, caption, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    area.top = caption.bottom;
    on.FillArea(area, cardBorder);
    InflateRect(&area, -1, -1);
    on.FillArea(area, paper);
    InflateRect(&area, -scaled(sizes.padding), -scaled(sizes.padding));
    card.draw(on, area);
}

}  // namespace

void SurfacePage::create(HWND parent) {
    Window::create(filling(parent, L"VelvoxSurfacePage"));
}

std::optional<LRESULT> SurfacePage::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_SIZE:
        case WM_SYSCOLORCHANGE:
            isDrawn_ = false;
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        default: return std::nullopt;
    }
}

void SurfacePage::paint(HDC target) {
    if (!std::exchange(isDrawn_, true)) draw();
    surface_.PaintToDC(target);
}

void SurfacePage::draw() {
    RECT area = clientArea(handle());
    surface_.CreateMyDC(area.right, area.bottom);
    surface_.BackColor(systemColour(WindowColour));
    surface_.Cls();
    surface_.BackMode(TRANSPARENT);
    const int margin = scaled(sizes.margin);
    InflateRect(&area, -margin, -margin);
    for (int i = 0; i < sizes.columns * sizes.rows; ++i)
        drawCard(surface_, cards[i],
                 row(column(area, margin, sizes.columns, i % sizes.columns), margin, sizes.rows,
                     i / sizes.columns));
}

}  // namespace velvox
