#include "gallery/sheet_win32.h"

#include "base/buffered_paint_win32.h"
#include "base/twips.h"
#include "controls/button/icon_picture_win32.h"
#include "controls/button/is_button_layout.h"
#include "controls/button/is_button_paint_win32.h"

namespace velvox {
WindowRequest filling(HWND parent, const wchar_t* className) {
    return {.className = className,
            .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN,
            .extendedStyle = WS_EX_CONTROLPARENT,
            .bounds = clientArea(parent),
            .parent = parent};
}

Sheet::Sheet(HWND parent) : font_(createFont({})) {
    // Bold text is in Arial, because bold Tahoma does not look bold at all sizes on some systems.
    Font bold;
    bold.name = "Arial";
    bold.bold = true;
    boldFont_ = createFont(bold);
    create(filling(parent, L"GallerySheet"));
}

Sheet::~Sheet() {
    windows_.clear();
    destroy();
}

void Sheet::write(const Bounds& at, std::string_view text, bool bold, bool centred) {
    constexpr int line = 16;
    Bounds place = at;
    if (place.height == 0) place.height = line;
    texts_.push_back({toPixels(inTwips(place)), widen(text), bold, centred});
}

void Sheet::draw(const Bounds& at, const ButtonLook& look, bool cue) {
    stills_.push_back({toPixels(inTwips(at)), look, cue});
}

isButton& Sheet::add(const Bounds& at, std::string_view name, const PropertyBag& stored,
                     const ButtonAmbient& ambient) {
    return add(buttons_.emplace_back(name, colours_), at, stored, ambient);
}

isButton& Sheet::add(const Bounds& at, const ControlDesign& design) {
    return add(buttons_.emplace_back(design.name, skinColours_), at, design.stored, {});
}

isButton& Sheet::add(isButton& button, const Bounds& at, const PropertyBag& stored,
                     const ButtonAmbient& ambient) {
    // The button is moved after its stored properties are read, as when a form loads.
    button.ReadProperties(stored, ambient);
    button.Move(inTwips(at));
    return button;
}

void Sheet::show(isButton& button) {
    windows_.emplace_back(button, handle(), static_cast<int>(windows_.size()) + 1);
}

std::shared_ptr<const Picture> Sheet::sampleIcon(LPCWSTR systemIcon) {
    return std::make_shared<IconPicture>(OwnedIcon(CopyIcon(LoadIconW(nullptr, systemIcon))));
}

void Sheet::paint(HDC target) {
    const RECT client = clientArea(handle());
    const BufferedPaint buffer(target, client);
    const HDC dc = buffer.dc();
    FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    for (const Text& text : texts_) {
        const ScopedSelectObject font(dc, (text.bold ? boldFont_ : font_).get());
        RECT at = text.at;
        DrawTextW(dc, text.text.c_str(), -1, &at,
                  (text.centred ? DT_CENTER : DT_LEFT) | DT_WORDBREAK | DT_NOPREFIX);
    }
    for (const Still& still : stills_) {
        const int width = still.at.right - still.at.left;
        const int height = still.at.bottom - still.at.top;
        const ButtonScene scene{colours_, static_cast<Rgb>(GetSysColor(COLOR_WINDOW)), still.cue,
                                thinLine()};
        const ButtonFace face(width, height);
        ButtonLook look = still.look;
        if (!paintButton(face, look, scene, handle(), systemThemes())) {
            look.style = 5;  // the usual NonThemeStyle, as in a live button
            paintButton(face, look, scene, handle(), systemThemes());
        }
        face.copyTo(dc, still.at.left, still.at.top,
                    buttonRegion(look.style, width, height, thinLine()).get());
    }
}

std::optional<LRESULT> Sheet::onMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_CTLCOLORBTN: return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        default: return std::nullopt;
    }
}

}  // namespace velvox
