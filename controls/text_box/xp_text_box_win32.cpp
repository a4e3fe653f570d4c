#include "controls/text_box/xp_text_box_win32.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "base/buffered_paint_win32.h"
#include "base/child_window_win32.h"
#include "base/clipboard_win32.h"
#include "base/mouse_win32.h"
#include "base/system_win32.h"
#include "base/twips.h"
#include "base/utf16.h"

namespace velvox {
namespace {

DWORD alignmentStyle(std::int16_t alignment) {
    constexpr DWORD styles[] = {ES_LEFT, ES_RIGHT, ES_CENTER};
    return styles[alignment];
}

// unitsOf() converts a byte offset into an offset in UTF-16 units, bytesOf() does the reverse. An
// offset inside a character becomes that of the next character.
int unitsOf(std::string_view text, std::int32_t bytes) {
    std::size_t passed = 0;
    int units = 0;
    while (passed < static_cast<std::size_t>(bytes) && passed < text.size()) {
        const std::string_view next = firstCharacters(text.substr(passed), 1);
        units += static_cast<int>(toUtf16(next).size());
        passed += next.size();
    }
    return units;
}

std::int32_t bytesOf(std::string_view text, DWORD units) {
    std::size_t bytes = 0;
    for (DWORD passed = 0; passed < units && bytes < text.size();) {
        const std::string_view next = firstCharacters(text.substr(bytes), 1);
        passed += static_cast<DWORD>(toUtf16(next).size());
        bytes += next.size();
    }
    return static_cast<std::int32_t>(bytes);
}

// Maximum number of characters that a paste inserts into a box without MaxLength: the default of an
// EDIT.
constexpr std::int32_t maxPasted = 30'000;

/// The part of a text that a single-line EDIT pastes.
std::string firstLine(const std::string& text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

}  // namespace

TextBoxWindow::TextBoxWindow(XPTextBox& box, HWND parent, const SystemColours& colours)
    : box_(box), model_(box.MyTxt), colours_(colours) {
    create({.className = L"EDIT",
            .text = widen(model_.Text()),
            .style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL |
                     alignmentStyle(model_.Alignment()),
            .parent = parent,
            .id = 1});
    controlChanged(ControlChange::Other);
    controlChanged(ControlChange::Appearance);
    controlChanged(ControlChange::Enabled);
    model_.setTextView(this);
}

TextBoxWindow::~TextBoxWindow() {
    model_.setTextView(nullptr);
}

void TextBoxWindow::controlChanged(ControlChange change) {
    switch (change) {
        case ControlChange::Text:
            setting_ = true;
            SetWindowTextW(handle(), widen(model_.Text()).c_str());
            setting_ = false;
            limitText();
            break;
        case ControlChange::Selection: {
            const std::string_view text = std::as_const(model_).Text();
            const Selection wanted = model_.wantedSelection();
            Edit_SetSel(handle(), unitsOf(text, wanted.start),
                        unitsOf(text, wanted.start + wanted.length));
            break;
        }
        case ControlChange::Enabled: EnableWindow(handle(), model_.Enabled()); break;
        case ControlChange::Other:
            Edit_SetReadOnly(handle(), model_.Locked());
            limitText();
            Edit_SetPasswordChar(handle(),
                                 model_.PasswordChar().empty()
                                     ? 0U
                                     : static_cast<UINT>(widen(model_.PasswordChar())[0]));
            applyToolTip();
            break;
        case ControlChange::Appearance: applyFace(); break;
        case ControlChange::Bounds: fit(); break;
        default: followBounds(handle(), model_, change); break;
    }
}

void TextBoxWindow::applyToolTip() {
    if (tipText_ == model_.ToolTipText()) return;
    tipText_ = model_.ToolTipText();
    tip_.reset();
    if (tipText_.empty()) return;
    tip_.reset(createToolTip(handle(), TTS_NOPREFIX));
    std::wstring text = widen(tipText_);
    TTTOOLINFOW tool = toolRecord(GetParent(handle()), TTF_IDISHWND | TTF_SUBCLASS,
                                  reinterpret_cast<UINT_PTR>(handle()));
    tool.lpszText = text.data();
    SendMessageW(tip_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

// EM_LIMITTEXT counts UTF-16 units and MaxLength counts characters, so each surrogate pair in the
// text raises the limit by one.
void TextBoxWindow::limitText() {
    const std::u16string text = toUtf16(windowText(handle()));
    const auto pairs = std::count_if(text.begin(), text.end(),
                                     [](char16_t unit) { return IS_HIGH_SURROGATE(unit); });
    const auto limit = static_cast<WPARAM>(model_.MaxLength());
    Edit_LimitText(handle(), limit ? limit + static_cast<WPARAM>(pairs) : 0);
}

// Cuts the text at MaxLength, because the EDIT itself would split a surrogate pair at the limit.
void TextBoxWindow::insert(std::string_view text) {
    if (model_.MaxLength() > 0) text = firstCharacters(text, model_.roomAtSelection());
    Edit_LimitText(handle(), 0);
    SendMessageW(handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(widen(text).c_str()));
    limitText();
}

Selection TextBoxWindow::selection() const {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    const std::int32_t from = bytesOf(model_.Text(), start);
    return {from, bytesOf(model_.Text(), end) - from};
}

void TextBoxWindow::focus() {
    SetFocus(handle());
}

void TextBoxWindow::applyFace() {
    font_ = createFont(model_.font());
    SetWindowFont(handle(), font_.get(), TRUE);
    background_.reset(
        CreateSolidBrush(static_cast<COLORREF>(translate(model_.BackColor(), colours_))));
    const auto style = static_cast<DWORD>(GetWindowLongW(handle(), GWL_STYLE));
    const DWORD wanted =
        (style & ~static_cast<DWORD>(ES_RIGHT | ES_CENTER)) | alignmentStyle(model_.Alignment());
    if (wanted != style) SetWindowLongW(handle(), GWL_STYLE, static_cast<LONG>(wanted));
    fit();
    InvalidateRect(handle(), nullptr, TRUE);
}

RECT TextBoxWindow::bounds() const {
    const RECT client = clientArea(GetParent(handle()));
    const Rect at = box_.textBounds(client.right, client.bottom, screenDpi());
    return {at.left, at.top, std::max(at.left, at.right), std::max(at.top, at.bottom)};
}

// An EDIT aligns its text at the top. To centre the text vertically, the EDIT becomes as tall as
// its text and is itself centred.
void TextBoxWindow::fit() {
    RECT at = bounds();
    const WindowDc dc(handle());
    const ScopedSelectObject font(dc.get(), font_.get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.get(), &metrics);
    const LONG spare = std::max<LONG>(0, at.bottom - at.top - metrics.tmHeight);
    at.top += spare / 2;
    at.bottom -= spare - spare / 2;
    SetWindowPos(handle(), nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// With a high contrast scheme the box has the system's colours, because white system text would be
// illegible on the box's own white.
HBRUSH TextBoxWindow::colour(HDC dc) {
    const bool own = !highContrast();
    const OleColour back = own ? model_.BackColor() : systemColour(WindowColour);
    OleColour fore = own ? model_.ForeColor() : systemColour(WindowTextColour);
    if (!IsWindowEnabled(handle())) fore = systemColour(GrayTextColour);
    SetBkColor(dc, static_cast<COLORREF>(translate(back, colours_)));
    SetTextColor(dc, static_cast<COLORREF>(translate(fore, colours_)));
    return background();
}

HBRUSH TextBoxWindow::background() const {
    return highContrast() ? GetSysColorBrush(COLOR_WINDOW) : background_.get();
}

std::optional<LRESULT> TextBoxWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case reflectedCommand:
            if (HIWORD(wParam) == EN_CHANGE && !setting_) {
                model_.typed(windowText(handle()));
                limitText();
            }
            return 0;
        case WM_PASTE:
            if (model_.Locked()) break;
            if (const auto text = clipboardText(handle())) {
                const std::string inserted = pasted ? pasted(*text) : firstLine(*text);
                if (!inserted.empty())
                    insert(model_.MaxLength() > 0 ? inserted
                                                  : firstCharacters(inserted, maxPasted));
            }
            return 0;
        case WM_UNDO:
        case EM_UNDO: {
            // The limit is lifted during an undo, because the previous text may have more surrogate
            // pairs.
            Edit_LimitText(handle(), 0);
            const LRESULT result = defaultHandling(handle(), message, wParam, lParam);
            limitText();
            return result;
        }
        case WM_CHAR: return character(wParam, lParam);
        case WM_MOUSEMOVE: mouseMoved(wParam, lParam); break;
        case WM_LBUTTONDOWN:
            pressed_ = true;
            containers_.start(handle(), [this] { endPress(); });
            break;
        case WM_CAPTURECHANGED:
            pressed_ = false;
            containers_.stop();
            break;
        case WM_SHOWWINDOW:
            if (!wParam) endPress();
            break;
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP: {
            const RECT client = clientArea(handle());
            const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
            // The events come in the system's order: Click at the first release, DblClick at the
            // second press, and nothing at the second release.
            const bool clicked = std::exchange(pressed_, false) && PtInRect(&client, at);
            const LRESULT result = defaultHandling(handle(), message, wParam, lParam);
            const auto& handler = message == WM_LBUTTONUP ? model_.Click : model_.DblClick;
            if (handler && (clicked || message == WM_LBUTTONDBLCLK)) handler();
            return result;
        }
        default: break;
    }
    return std::nullopt;
}

// The EDIT captures the mouse during a press. Losing the capture ends the press.
void TextBoxWindow::endPress() {
    if (GetCapture() == handle()) ReleaseCapture();
}

std::optional<LRESULT> TextBoxWindow::character(WPARAM unit, LPARAM lParam) {
    // A character of two UTF-16 units arrives as two messages. The first unit is kept until the
    // second arrives.
    const wchar_t first = std::exchange(firstOfPair_, L'\0');
    if (IS_HIGH_SURROGATE(unit)) {
        firstOfPair_ = static_cast<wchar_t>(unit);
        return 0;
    }
    if (IS_LOW_SURROGATE(unit)) {
        const wchar_t pair[] = {first, static_cast<wchar_t>(unit)};
        if (first && !model_.Locked()) insert(narrow({pair, 2}));
        return 0;
    }
    // Only characters that fit the handler's 16-bit number are passed to it.
    if (!model_.KeyPress || unit > 0x7FFF) return std::nullopt;
    auto key = static_cast<std::int16_t>(unit);
    model_.KeyPress(key);
    if (key == 0) return 0;
    if (static_cast<WPARAM>(key) == unit) return std::nullopt;
    return defaultHandling(handle(), WM_CHAR, static_cast<WPARAM>(key), lParam);
}

void TextBoxWindow::mouseMoved(WPARAM wParam, LPARAM lParam) {
    if (!model_.MouseMove) return;
    const int shift = (wParam & MK_SHIFT ? 1 : 0) | (wParam & MK_CONTROL ? 2 : 0) |
                      (GetKeyState(VK_MENU) < 0 ? 4 : 0);
    model_.MouseMove(static_cast<std::int16_t>(heldButtons(wParam)),
                     static_cast<std::int16_t>(shift),
                     static_cast<float>(toTwips(GET_X_LPARAM(lParam))),
                     static_cast<float>(toTwips(GET_Y_LPARAM(lParam))));
}

XPTextBoxWindow::XPTextBoxWindow(XPTextBox& model, HWND parent, int id,
                                 const SystemColours& colours)
    : model_(model), colours_(colours) {
    create({.className = L"XPTextBox",
            .style =
                WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | (model.Visible() ? WS_VISIBLE : 0U),
            .extendedStyle = WS_EX_CONTROLPARENT,
            .bounds = toPixels(model.bounds()),
            .parent = parent,
            .id = id});
    edit_.emplace(model, handle(), colours_);
    model_.setObserver(this);
    model_.Pic.setObserver(&picObserver_);
}

XPTextBoxWindow::~XPTextBoxWindow() {
    model_.Pic.setObserver(nullptr);
    model_.setObserver(nullptr);
}

void XPTextBoxWindow::PicObserver::controlChanged(ControlChange change) {
    if (change == ControlChange::Appearance) InvalidateRect(window.handle(), nullptr, FALSE);
}

void XPTextBoxWindow::controlChanged(ControlChange change) {
    followBounds(handle(), model_, change);
    if (change == ControlChange::Appearance) InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<LRESULT> XPTextBoxWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SIZE:
            if (edit_) edit_->fit();
            return 0;
        case WM_SETFOCUS:
            if (edit_) SetFocus(edit_->handle());
            return 0;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            if (!edit_) break;
            return reinterpret_cast<LRESULT>(edit_->colour(reinterpret_cast<HDC>(wParam)));
        case WM_COMMAND:
            if (reflectCommand(lParam, wParam)) return 0;
            break;
        default: break;
    }
    return std::nullopt;
}

void XPTextBoxWindow::paint(HDC target) const {
    const RECT client = clientArea(handle());
    const BufferedPaint buffer(target, client);
    const HDC dc = buffer.dc();
    const auto rgbOf = [this, own = !highContrast()](OleColour colour, int inContrast) {
        return translate(own ? colour : systemColour(inContrast), colours_);
    };
    fill(dc, client, rgbOf(model_.Pic.BackColor(), WindowColour));
    // The EDIT is only as tall as its text. The area above and below it gets the same background.
    const RECT inner = edit_->bounds();
    FillRect(dc, &inner, edit_->background());
    for (const DrawnLine& line : model_.frame()) {
        const OwnedPen pen(
            CreatePen(PS_SOLID, 1, static_cast<COLORREF>(rgbOf(line.colour, WindowTextColour))));
        const ScopedSelectObject selected(dc, pen.get());
        // Scales by the window's actual size in pixels, so that the right and bottom lines lie in
        // the window's last column and row.
        const auto x = [&](int twips) { return MulDiv(twips, client.right, model_.Pic.Width()); };
        const auto y = [&](int twips) { return MulDiv(twips, client.bottom, model_.Pic.Height()); };
        MoveToEx(dc, x(line.x1), y(line.y1), nullptr);
        LineTo(dc, x(line.x2), y(line.y2));
    }
}

}  // namespace velvox
