#include "gallery/scroll_page_win32.h"

#include <algorithm>
#include <array>

#include "base/system_win32.h"
#include "controlkit/gradient.h"
#include "controlkit/scroll_look.h"

namespace velvox {
namespace {

constexpr const wchar_t* pageClass = L"VelvoxScrollPage";

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
    int smallChange = 16;  // as a value of the bars
    int wheelChange = 48;
    double captionPoints = 11;
    double gridPoints = 9;
} sizes;

constexpr OleColour ink = rgb(0x1F, 0x2A, 0x44);
constexpr OleColour gridLine = rgb(0xFF, 0xFF, 0xFF);
constexpr OleColour frame = rgb(128, 128, 255);  // as the bars' border

enum CommandId : int { EnabledId = 100, WheelId, LaunchId };

constexpr std::size_t maxLines = 500;

int px(int design) {
    return scaled(design, screenDpi());
}

OleColour plain(Rgb colour) {
    return static_cast<OleColour>(colour);
}

}  // namespace

/// Where everything lies, in pixels of the page.
struct ScrollPage::Layout {
    explicit Layout(const RECT& page) {
        const int margin = px(sizes.margin), caption = px(sizes.captionHeight);
        const int bar = px(sizes.bar), line = px(scrollSizes.border);
        RECT area = page;
        InflateRect(&area, -margin, -margin);
        const int side = area.right - px(sizes.sideColumn);
        const int checks = 3 * px(sizes.checkBox);

        samplesCaption = {area.left, area.bottom - bar - caption, side - margin, area.bottom - bar};
        const int half = (side - margin - area.left - margin) / 2;
        colourful = {area.left, area.bottom - bar, area.left + half, area.bottom};
        disabled = {side - margin - half, area.bottom - bar, side - margin, area.bottom};

        pictureCaption = {area.left, area.top, side - margin, area.top + caption};
        const int low = samplesCaption.top - margin;
        // The bars' outlines lie on the picture's: one line, not two.
        vertical = {side - margin - bar, pictureCaption.bottom, side - margin, low - bar + line};
        horizontal = {area.left, low - bar, vertical.left + line, low};
        view = {area.left + line, pictureCaption.bottom + line, vertical.left, horizontal.top};

        eventsCaption = {side, area.top, area.right, area.top + caption};
        events = {side, eventsCaption.bottom, area.right, area.bottom - checks - margin};
        for (int i = 0; i < 3; ++i)
            check[static_cast<std::size_t>(i)] = {
                side, area.bottom - checks + i * px(sizes.checkBox), area.right,
                area.bottom - checks + (i + 1) * px(sizes.checkBox)};
    }

    RECT pictureCaption, view, vertical, horizontal;
    RECT samplesCaption, colourful, disabled;
    RECT eventsCaption, events;
    std::array<RECT, 3> check;
};

void ScrollPage::create(HWND parent) {
    registerWindowClass(pageClass);
    WindowRequest request;
    request.className = pageClass;
    request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    request.extendedStyle = WS_EX_CONTROLPARENT;
    GetClientRect(parent, &request.bounds);
    request.parent = parent;
    Window::create(request);

    RECT client{};
    GetClientRect(handle(), &client);
    const Layout layout(client);
    view_ = layout.view;
    drawPicture();
    createControls(layout);
}

void ScrollPage::drawPicture() {
    const int width = px(sizes.pictureWidth), height = px(sizes.pictureHeight);
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
            RECT cell{px(x * step), px(y * step), px((x + 1) * step), px((y + 1) * step)};
            picture_.DrawGradient(tone(0, 0), tone(1, 0), cell.left, cell.top,
                                  cell.right - cell.left, cell.bottom - cell.top, leftToRight);
            picture_.DrawLine(cell.left, cell.top, cell.right, cell.top);
            picture_.DrawLine(cell.left, cell.top, cell.left, cell.bottom);
            OffsetRect(&cell, px(5), px(4));
            picture_.DrawText(std::to_string(x * step) + ", " + std::to_string(y * step), cell,
                              DT_LEFT | DT_TOP | DT_SINGLELINE);
        }
    picture_.PenWidth(px(2));
    for (int ring = 1; ring <= 6; ++ring) {
        const int radius = px(ring * step);
        picture_.DrawEllipse(width / 2 - radius, height / 2 - radius, width / 2 + radius,
                             height / 2 + radius);
    }
}

ScrolledLength ScrollPage::scrolledWidth() const {
    return {sizes.pictureWidth, view_.right - view_.left, screenDpi()};
}
ScrolledLength ScrollPage::scrolledHeight() const {
    return {sizes.pictureHeight, view_.bottom - view_.top, screenDpi()};
}

void ScrollPage::createControls(const Layout& layout) {
    font_ = createFont(Font{});
    vertical_.ScrollHeight(sizes.arrow);
    horizontal_.ScrollWidth(sizes.arrow);
    const auto measure = [](ScrollBarWindow& bar, const ScrolledLength& length) {
        bar.Max(length.max());
        bar.LargeChange(length.shown());
        bar.SmallChange(sizes.smallChange);
        bar.WheelChange(sizes.wheelChange);
        bar.Value(bar.Max() / 2);
    };
    measure(vertical_, scrolledHeight());
    measure(horizontal_, scrolledWidth());
    vertical_.create(handle(), layout.vertical);
    horizontal_.create(handle(), layout.horizontal);

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

    WindowRequest request;
    request.parent = handle();
    request.className = L"LISTBOX";
    request.style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_BORDER | WS_TABSTOP |
                    LBS_NOINTEGRALHEIGHT | LBS_NOSEL;
    request.bounds = layout.events;
    events_.create(request);

    const auto addCheckBox = [&](PlainControl& box, CommandId id, const wchar_t* text) {
        request.className = L"BUTTON";
        request.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTOCHECKBOX;
        request.id = id;
        request.text = text;
        request.bounds = layout.check[static_cast<std::size_t>(id - EnabledId)];
        box.create(request);
        SendMessageW(box.handle(), BM_SETCHECK, BST_CHECKED, 0);
    };
    addCheckBox(enabled_, EnabledId, L"Enabled");
    addCheckBox(wheel_, WheelId, L"EnableWheel");
    addCheckBox(launch_, LaunchId, L"LaunchKeyMouseEvents");
    for (const PlainControl* control : {&events_, &enabled_, &wheel_, &launch_})
        SendMessageW(control->handle(), WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);

    listen(vertical_, "V");
    listen(horizontal_, "H");
}

void ScrollPage::listen(ScrollBarWindow& bar, std::string_view name) {
    const auto reports = [this, name](std::string_view event) {
        return [this, name, event] { report(name, event); };
    };
    const auto reportsKey = [this, name](std::string_view event) {
        return [this, name, event](std::int16_t& KeyCode, std::int16_t Shift) {
            report(name, event, std::to_string(KeyCode) + ", " + std::to_string(Shift));
        };
    };
    const auto reportsMouse = [this, name](std::string_view event) {
        return [this, name, event](MouseButton Button, std::int16_t Shift, bool Control) {
            report(name, event,
                   std::to_string(static_cast<int>(Button)) + ", " + std::to_string(Shift) +
                       (Control ? ", True" : ", False"));
        };
    };
    bar.Change = [this, name](const FixedPoint& Value) { report(name, "Change", Value.text()); };
    bar.KeyDown = reportsKey("KeyDown");
    bar.KeyPress = [this, name](std::int16_t& KeyAscii) {
        report(name, "KeyPress", std::to_string(KeyAscii));
    };
    bar.KeyUp = reportsKey("KeyUp");
    bar.MouseHover = reports("MouseHover");
    bar.MouseLeave = reports("MouseLeave");
    bar.MouseWheel = [this, name](std::int16_t Sens) {
        report(name, "MouseWheel", std::to_string(Sens));
    };
    bar.MouseDown = reportsMouse("MouseDown");
    bar.MouseUp = reportsMouse("MouseUp");
    bar.MouseDblClick = reportsMouse("MouseDblClick");
    bar.MouseMove = reportsMouse("MouseMove");
    bar.Scroll = [this, name, &bar] {
        report(name, "Scroll", "Value " + bar.Value().text());
        InvalidateRect(handle(), nullptr, FALSE);
        UpdateWindow(handle());
    };
}

void ScrollPage::report(std::string_view bar, std::string_view event, std::string_view detail) {
    std::string line = std::string(bar) + "   " + std::string(event);
    if (!detail.empty()) line += "  (" + std::string(detail) + ")";
    const HWND list = events_.handle();
    // A run of moves is one line that counts them.
    if (line == lastLine_) {
        SendMessageW(list, LB_DELETESTRING, 0, 0);
        ++repeats_;
    } else {
        repeats_ = 1;
    }
    lastLine_ = line;
    if (repeats_ > 1) line += "  \xC3\x97 " + std::to_string(repeats_);
    SendMessageW(list, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(widen(line).c_str()));
    SendMessageW(list, LB_DELETESTRING, maxLines, 0);
    SendMessageW(list, LB_SETTOPINDEX, 0, 0);
}

std::optional<LRESULT> ScrollPage::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(Painting(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_SYSCOLORCHANGE: InvalidateRect(handle(), nullptr, TRUE); return 0;
        // What a child leaves of the wheel comes here: the picture follows it too.
        case WM_MOUSEWHEEL:
            (wParam & MK_SHIFT ? static_cast<ScrollBarWindow&>(horizontal_) : vertical_)
                .wheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return 0;
        case WM_CTLCOLORSTATIC: return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        case WM_MOUSEHWHEEL: horizontal_.wheel(-GET_WHEEL_DELTA_WPARAM(wParam)); return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) {
                for (ScrollBarWindow* bar : {static_cast<ScrollBarWindow*>(&vertical_),
                                             static_cast<ScrollBarWindow*>(&horizontal_)}) {
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
    RECT client{};
    GetClientRect(handle(), &client);
    const Layout layout(client);
    if (surface_.Width() != client.right || surface_.Height() != client.bottom) {
        surface_.CreateMyDC(client.right, client.bottom);
        surface_.BackMode(TRANSPARENT);
        surface_.ForeColor(ink);
    }
    surface_.BackColor(systemColour(WindowColour));
    surface_.Cls();

    const auto caption = [&](std::string_view text, RECT at, UINT side = DT_LEFT) {
        surface_.DrawText(text, at, side | DT_VCENTER | DT_SINGLELINE);
    };
    Font font;
    font.points = sizes.captionPoints;
    surface_.Font(font);
    const int x = horizontal_.Value().toWhole(), y = vertical_.Value().toWhole();
    caption("at " + std::to_string(x) + ", " + std::to_string(y), layout.pictureCaption, DT_RIGHT);
    caption("Picture", layout.pictureCaption);
    caption("Events, newest first", layout.eventsCaption);
    caption("Colours of its own", layout.samplesCaption);
    RECT second = layout.samplesCaption;
    second.left = layout.disabled.left;
    caption("Disabled", second);

    const int line = px(scrollSizes.border);
    RECT framed = layout.view;
    InflateRect(&framed, line, line);
    surface_.FillArea(framed, frame);
    const RECT corner{layout.vertical.left, layout.horizontal.top, layout.vertical.right,
                      layout.horizontal.bottom};
    surface_.FillArea(corner, frame);
    surface_.FillArea(
        {corner.left + line, corner.top + line, corner.right - line, corner.bottom - line},
        systemColour(WindowColour));
    picture_.PaintToDC(surface_.hDC(), view_.left, view_.top, view_.right - view_.left,
                       view_.bottom - view_.top, scrolledWidth().offset(x),
                       scrolledHeight().offset(y));
    surface_.PaintToDC(target);
}

}  // namespace velvox
