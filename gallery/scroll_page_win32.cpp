#include "gallery/scroll_page_win32.h"

#include <array>
#include <string>

#include "base/system_win32.h"
#include "base/twips.h"
#include "controlkit/gradient.h"
#include "controlkit/scroll_look.h"
#include "gallery/sheet_win32.h"

namespace velvox {
namespace {

/// Lengths in pixels of a 96 dpi screen.
constexpr struct {
    int margin = 12;
    int captionHeight = 20;
    int bar = 17;
    int arrow = 16;
    int sideColumn = 250;
    int checkBox = 22;
    int pictureWidth = 1600;
    int pictureHeight = 1200;
    int gridStep = 100;
    int buttonWidth = 90;
    int buttonHeight = 24;
    double captionPoints = 11;
    double gridPoints = 9;
} sizes;

constexpr OleColour ink = rgb(0x1F, 0x2A, 0x44);
constexpr OleColour gridLine = rgb(0xFF, 0xFF, 0xFF);

enum CommandId : int { EnabledId = 100, WheelId, LaunchId };

OleColour plain(Rgb colour) {
    return static_cast<OleColour>(colour);
}

}  // namespace

/// The layout, in pixels of the page.
struct ScrollPage::Layout {
    explicit Layout(const RECT& page) {
        const int margin = scaled(sizes.margin), caption = scaled(sizes.captionHeight);
        const int bar = scaled(sizes.bar);
        RECT area = page;
        InflateRect(&area, -margin, -margin);
        const int side = area.right - scaled(sizes.sideColumn);
        const int checks = 3 * scaled(sizes.checkBox);

        samplesCaption = {area.left, area.bottom - bar - caption, side - margin, area.bottom - bar};
        const int half = (side - margin - area.left - margin) / 2;
        colourful = {area.left, area.bottom - bar, area.left + half, area.bottom};
        disabled = {side - margin - half, area.bottom - bar, side - margin, area.bottom};

        pictureCaption = {area.left, area.top, side - margin, area.top + caption};
        container = {area.left, pictureCaption.bottom, side - margin, samplesCaption.top - margin};

        eventsCaption = {side, area.top, area.right, area.top + caption};
        events = {side, eventsCaption.bottom, area.right, area.bottom - checks - margin};
        for (int i = 0; i < 3; ++i)
            check[static_cast<std::size_t>(i)] = {
                side, area.bottom - checks + i * scaled(sizes.checkBox), area.right,
                area.bottom - checks + (i + 1) * scaled(sizes.checkBox)};
    }

    RECT pictureCaption, container;
    RECT samplesCaption, colourful, disabled;
    RECT eventsCaption, events;
    std::array<RECT, 3> check;
};

void ScrollPage::create(HWND parent) {
    Window::create(filling(parent, L"VelvoxScrollPage"));
    createControls(Layout(clientArea(handle())));
}

LargePicture::LargePicture(HWND parent) {
    draw();
    create({.className = L"VelvoxLargePicture",
            .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
            .extendedStyle = WS_EX_CONTROLPARENT,
            .bounds = {0, 0, picture_.Width(), picture_.Height()},
            .parent = parent});

    constexpr int step = sizes.gridStep;
    constexpr int lastColumn = sizes.pictureWidth / step - 1,
                  lastRow = sizes.pictureHeight / step - 1;
    constexpr struct {
        int column, row;  // cell of the grid
        const wchar_t* text;
    } places[] = {{0, 0, L"Upper left"},
                  {lastColumn, 0, L"Upper right"},
                  {lastColumn / 2, lastRow / 2, L"Middle"},
                  {0, lastRow, L"Lower left"},
                  {lastColumn, lastRow, L"Lower right"}};
    for (const auto& place : places) {
        const int x = place.column * step + (step - sizes.buttonWidth) / 2;
        const int y = place.row * step + (step - sizes.buttonHeight) / 2;
        buttons_.emplace_back().create(
            {.className = L"BUTTON",
             .text = place.text,
             .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP,
             .bounds = toPixels(inTwips({x, y, sizes.buttonWidth, sizes.buttonHeight})),
             .parent = handle()});
    }
}

std::optional<LRESULT> LargePicture::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            const PaintScope painting(handle());
            const RECT& part = painting.invalid();
            picture_.PaintToDC(painting.dc(), part.left, part.top, part.right - part.left,
                               part.bottom - part.top, part.left, part.top);
            return 0;
        }
        case WM_PRINTCLIENT: picture_.PaintToDC(reinterpret_cast<HDC>(wParam)); return 0;
        default: return std::nullopt;
    }
}

void LargePicture::draw() {
    const int width = scaled(sizes.pictureWidth), height = scaled(sizes.pictureHeight);
    picture_.CreateMyDC(width, height);
    picture_.BackMode(TRANSPARENT);
    Font font;
    font.points = sizes.gridPoints;
    picture_.Font(font);
    picture_.ForeColor(ink);
    picture_.PenColor(gridLine);
    constexpr int step = sizes.gridStep;
    constexpr int columns = sizes.pictureWidth / step, rows = sizes.pictureHeight / step;
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < columns; ++x) {
            const auto tone = [&](int dx, int dy) {
                const int across = 255 * (x + dx) / columns, down = 255 * (y + dy) / rows;
                return plain(
                    rgb(160 + across * 95 / 255, 200 - down * 60 / 255, 250 - across * 110 / 255));
            };
            RECT cell{scaled(x * step), scaled(y * step), scaled((x + 1) * step),
                      scaled((y + 1) * step)};
            picture_.DrawGradient(tone(0, 0), tone(1, 0), cell.left, cell.top,
                                  cell.right - cell.left, cell.bottom - cell.top, leftToRight);
            picture_.DrawLine(cell.left, cell.top, cell.right, cell.top);
            picture_.DrawLine(cell.left, cell.top, cell.left, cell.bottom);
            OffsetRect(&cell, scaled(5), scaled(4));
            picture_.DrawText(std::to_string(x * step) + ", " + std::to_string(y * step), cell,
                              DT_LEFT | DT_TOP | DT_SINGLELINE);
        }
    // Wine takes 0.1 s to draw a ring with a wide pen, so a thin one is drawn at each place of a
    // square pen.
    const int pen = scaled(2);
    for (int ring = 1; ring <= 6; ++ring)
        for (int place = 0; place < pen * pen; ++place) {
            const int x = width / 2 + place % pen, y = height / 2 + place / pen;
            const int radius = scaled(ring * step);
            picture_.DrawEllipse(x - radius, y - radius, x + radius, y + radius);
        }
}

void ScrollPage::createControls(const Layout& layout) {
    container_.create(handle(), layout.container);
    picture_.emplace(container_.view());
    container_.setContent(picture_->handle());
    container_.scrollTo({container_.horizontal().Max() / 2, container_.vertical().Max() / 2});

    colourful_.ScrollWidth(sizes.arrow);
    colourful_.BackColor(rgb(0x26, 0x2B, 0x36));
    colourful_.FrontColor(rgb(0xE8, 0x85, 0x1C));
    colourful_.BorderColor(rgb(0x12, 0x15, 0x1C));
    colourful_.ArrowColor(rgb(0x12, 0x15, 0x1C));
    colourful_.MouseHoverColor(rgb(0xFF, 0xA9, 0x4D));
    colourful_.DownColor(rgb(0xB8, 0x62, 0x0A));
    colourful_.LargeChangeColor(rgb(0x4A, 0x52, 0x63));
    colourful_.LargeChange(40);
    colourful_.create(handle(), layout.colourful);
    disabled_.ScrollWidth(sizes.arrow);
    disabled_.LargeChange(40);
    disabled_.Enabled(false);
    disabled_.create(handle(), layout.disabled);

    events_.create(handle(), layout.events);
    const auto addCheckBox = [&](PlainControl& box, CommandId id, const wchar_t* text) {
        box.create({.className = L"BUTTON",
                    .text = text,
                    .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX,
                    .bounds = layout.check[static_cast<std::size_t>(id - EnabledId)],
                    .parent = handle(),
                    .id = id});
        SendMessageW(box.handle(), BM_SETCHECK, BST_CHECKED, 0);
    };
    addCheckBox(enabled_, EnabledId, L"Enabled");
    addCheckBox(wheel_, WheelId, L"EnableWheel");
    addCheckBox(launch_, LaunchId, L"LaunchKeyMouseEvents");

    listen(container_.vertical(), "V");
    listen(container_.horizontal(), "H");
    container_.Scroll = [this] {
        const POINT at = container_.position();
        events_.add("Container", "Scroll", std::to_string(at.x) + ", " + std::to_string(at.y));
        InvalidateRect(handle(), nullptr, FALSE);
        UpdateWindow(handle());
    };
}

void ScrollPage::listen(ScrollBarWindow& bar, std::string_view name) {
    const auto reports = [this, name](std::string_view event) {
        return [this, name, event] { events_.add(name, event); };
    };
    const auto reportsKey = [this, name](std::string_view event) {
        return [this, name, event](std::int16_t& KeyCode, std::int16_t Shift) {
            events_.add(name, event, std::to_string(KeyCode) + ", " + std::to_string(Shift));
        };
    };
    const auto reportsMouse = [this, name](std::string_view event) {
        return [this, name, event](MouseButton Button, std::int16_t Shift, bool Control) {
            events_.add(name, event,
                        std::to_string(static_cast<int>(Button)) + ", " + std::to_string(Shift) +
                            (Control ? ", True" : ", False"));
        };
    };
    bar.Change = [this, name](const FixedPoint& Value) {
        events_.add(name, "Change", Value.text());
    };
    bar.KeyDown = reportsKey("KeyDown");
    bar.KeyPress = [this, name](std::int16_t& KeyAscii) {
        events_.add(name, "KeyPress", std::to_string(KeyAscii));
    };
    bar.KeyUp = reportsKey("KeyUp");
    bar.MouseHover = reports("MouseHover");
    bar.MouseLeave = reports("MouseLeave");
    bar.MouseWheel = [this, name](std::int16_t Sens) {
        events_.add(name, "MouseWheel", std::to_string(Sens));
    };
    bar.MouseDown = reportsMouse("MouseDown");
    bar.MouseUp = reportsMouse("MouseUp");
    bar.MouseDblClick = reportsMouse("MouseDblClick");
    bar.MouseMove = reportsMouse("MouseMove");
}

std::optional<LRESULT> ScrollPage::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        // A wheel message that a child does not handle arrives here: it scrolls the picture too.
        case WM_MOUSEWHEEL:
            (wParam & MK_SHIFT ? static_cast<ScrollBarWindow&>(container_.horizontal())
                               : container_.vertical())
                .wheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_CTLCOLORSTATIC:
            SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
            SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        case WM_MOUSEHWHEEL:
            container_.horizontal().wheel(-GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) {
                for (ScrollBarWindow* bar :
                     {static_cast<ScrollBarWindow*>(&container_.vertical()),
                      static_cast<ScrollBarWindow*>(&container_.horizontal())}) {
                    const auto isChecked = [](const PlainControl& box) {
                        return SendMessageW(box.handle(), BM_GETCHECK, 0, 0) == BST_CHECKED;
                    };
                    bar->Enabled(isChecked(enabled_));
                    bar->EnableWheel(isChecked(wheel_));
                    bar->LaunchKeyMouseEvents(isChecked(launch_));
                }
            }
            return 0;
        default: return std::nullopt;
    }
}

void ScrollPage::paint(HDC target) {
    const RECT client = clientArea(handle());
    const Layout layout(client);
    if (surface_.Width() != client.right || surface_.Height() != client.bottom) {
        surface_.CreateMyDC(client.right, client.bottom);
        surface_.BackMode(TRANSPARENT);
    }
    surface_.ForeColor(systemColour(WindowTextColour));
    surface_.BackColor(systemColour(WindowColour));
    surface_.Cls();

    const auto caption = [&](std::string_view text, RECT at, UINT side = DT_LEFT) {
        surface_.DrawText(text, at, side | DT_VCENTER | DT_SINGLELINE);
    };
    Font font;
    font.points = sizes.captionPoints;
    surface_.Font(font);
    // Converts screen pixels to the unit of the picture's grid.
    const auto designed = [](LONG pixels) {
        return std::to_string(scaleLength(static_cast<int>(pixels), designDpi, screenDpi()));
    };
    const POINT at = container_.position();
    caption("at " + designed(at.x) + ", " + designed(at.y), layout.pictureCaption, DT_RIGHT);
    caption("Picture", layout.pictureCaption);
    caption("Events, newest first", layout.eventsCaption);
    caption("Colours of its own", layout.samplesCaption);
    RECT second = layout.samplesCaption;
    second.left = layout.disabled.left;
    caption("Disabled", second);

    surface_.PaintToDC(target);
}

}  // namespace velvox
