#include "app/window/form1_win32.h"

#include <windowsx.h>

#include "app/form1/form1_design.h"
#include "app/form1/given_address.h"
#include "app/form1/skin_palette.h"
#include "app/resource.h"
#include "app/window/form1_children_win32.h"
#include "app/window/program.h"
#include "base/buffered_paint_win32.h"
#include "base/child_window_win32.h"
#include "base/clipboard_win32.h"
#include "base/mouse_win32.h"
#include "base/system_win32.h"
#include "base/twips.h"

namespace velvox {
namespace {

RECT designPixels(std::string_view name) {
    return toPixels(designOf(name).bounds);
}

// Bounds of the progress text: from the end of the "Status" label to the right edge of the pane.
RECT progressPlace() {
    const Bounds word = designOf("Label3").bounds;
    const Bounds pane = designOf("output").bounds;
    const int left = word.left + word.width;
    return toPixels({left, word.top, pane.left + pane.width - left, word.height});
}

// Bounds of the window at start-up: centred on the work area of the primary monitor. On a small
// work area, the top left corner stays inside.
RECT openingPlace(SIZE size) {
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const LONG left = std::max(work.left, (work.left + work.right - size.cx) / 2);
    const LONG top = std::max(work.top, (work.top + work.bottom - size.cy) / 2);
    return {left, top, left + size.cx, top + size.cy};
}

// Whether a window and all its parents up to `form` are visible and enabled. True for windows
// outside the form, such as an open drop-down list.
bool canTakeKeys(HWND window, HWND form) {
    if (!IsChild(form, window)) return true;
    for (; window != form; window = GetParent(window))
        if (!IsWindowVisible(window) || !IsWindowEnabled(window)) return false;
    return true;
}

}  // namespace

Form1Window::Form1Window(MessagePump& pump, const TransferLimits& limits)
    : pump_(pump),
      input_(pump, [this](HWND window) { return inputTargetOf(window); }),
      desktop_(pump),
      limits_(limits),
      transfer_(session_, limits, [&pump](const auto& isOver) { pump.serveInput(isOver); }) {
    colours_.setHighContrast(highContrast());
    const RECT design = designPixels("Form1");
    create({.className = L"Form1",
            .text = windowTitle,
            .style = WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN,
            .extendedStyle = WS_EX_APPWINDOW | WS_EX_CONTROLPARENT,
            .bounds = openingPlace({design.right, design.bottom}),
            .classStyle = CS_DROPSHADOW,
            .iconId = IDI_VELVOX});
    desktop_.setWindow(handle());
    children_ = std::make_unique<Children>(*this);
    std::function<void()>& pressed = form().UniXPButton1.Click;
    pressed = [this, handler = pressed] {
        input_.run([this, &handler] {
            // A program that drags over this window would wait until this thread answers.
            addressDrop_.reset();
            const struct End {
                Form1Window& window;
                ~End() { window.endRun(); }
            } end{*this};
            handler();
        });
    };
    transfer_.onProgress = [this](const TransferProgress& now) { showProgress(progressText(now)); };
    pump_.intercept = [this](MSG& message) { return intercept(message); };
    children_->linkin->onPaste(&givenAddress);
    const Bounds bar = form().skinbar.bounds();
    systemMenu_.emplace(handle(), toPixels({0, 0, form().Width(), bar.top + bar.height}),
                        toPixels(form().skinicon.bounds()), [this] { return input_.running(); });
    acceptDrops();
}

Form1Window::~Form1Window() {
    addressDrop_.reset();
    pump_.intercept = nullptr;
    children_.reset();
    destroy();
}

Form1& Form1Window::form() {
    return children_->form;
}

void Form1Window::show() {
    form().Form_Load();
    lastFocus_ = children_->linkin->editHandle();
    ShowWindow(handle(), SW_SHOWDEFAULT);
    UpdateWindow(handle());
}

Point Form1Window::cursorPosition() const {
    POINT at{};
    GetCursorPos(&at);
    return {at.x, at.y};
}

Rect Form1Window::windowRect() const {
    RECT at{};
    GetWindowRect(handle(), &at);
    return {at.left, at.top, at.right, at.bottom};
}

void Form1Window::moveTo(Point topLeft) {
    SetWindowPos(handle(), nullptr, topLeft.x, topLeft.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void Form1Window::setCapture() {
    SetCapture(handle());
}

void Form1Window::releaseCapture() {
    ReleaseCapture();
}

std::optional<LRESULT> Form1Window::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!children_) return std::nullopt;
    if (systemMenu_)
        if (const auto result = systemMenu_->onMessage(message, wParam, lParam)) return result;
    switch (message) {
        case WM_PAINT: {
            const PaintScope painting(handle());
            const RECT client = clientArea(handle());
            const BufferedPaint buffer(painting.dc(), client);
            paint(buffer.dc());
            return 0;
        }
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SIZE:
            if (wParam == SIZE_MINIMIZED) return 0;
            form().Move({0, 0, toTwips(GET_X_LPARAM(lParam)), toTwips(GET_Y_LPARAM(lParam))});
            // While minimised, no control could take the focus that the system gave the window.
            if (GetFocus() == handle()) restoreFocus();
            return 0;
        case WM_LBUTTONDOWN:
            systemMenu_->pressed({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            form().Form_MouseDown(MouseButton::Left, 0, 0, 0);
            return 0;
        case WM_LBUTTONUP:
            form().Form_MouseUp(MouseButton::Left, 0, 0, 0);
            systemMenu_->released({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
            return 0;
        case WM_MOUSEMOVE: form().Form_MouseMove(heldButtons(wParam), 0, 0, 0); return 0;
        case WM_CAPTURECHANGED:
            // Losing the mouse capture ends a drag.
            form().Dragging = false;
            return 0;
        case WM_TIMER:
            for (WindowTimer& timer : children_->timers)
                if (timer.id() == wParam) pump_.tick([&] { timer.tick(); });
            return 0;
        case WM_COMMAND:
            if (reflectCommand(lParam, wParam)) return 0;
            break;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) storeFocus();
            skin_.setActive(LOWORD(wParam) != WA_INACTIVE);
            repaintAll();
            break;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED: followContrast(); break;
        case WM_SETFOCUS: restoreFocus(); return 0;
        case WM_SYSCOMMAND: return onSystemCommand(wParam & 0xFFF0);
        case WM_ENABLE: input_.windowEnabled(wParam != FALSE); break;
        case WM_CLOSE: close(); return 0;
        case WM_DESTROY: pump_.quit(0); return 0;
        default: break;
    }
    return std::nullopt;
}

std::optional<LRESULT> Form1Window::onSystemCommand(WPARAM command) {
    // Minimising takes the focus from its control before WM_ACTIVATE arrives.
    if (command == SC_MINIMIZE) storeFocus();
    // Wine sends keys to a minimised window. Its menu would be invisible and would block a run.
    if (command == SC_KEYMENU && IsIconic(handle())) return 0;
    return std::nullopt;
}

void Form1Window::paint(HDC dc) const {
    const RECT client = clientArea(handle());
    skin_.draw(dc, Skin::Piece::Form, client);
    const Form1& form = children_->form;
    skin_.draw(dc, Skin::Piece::Icon, toPixels(form.skinicon.bounds()));
    skin_.draw(dc, Skin::Piece::Bar, toPixels(form.skinbar.bounds()));
    int number = 0;
    LONG below = 0;
    for (const Line& line : lineDesigns) {
        const RECT at = toPixels({line.x1, line.y1, line.x2 - line.x1, line.y2 - line.y1});
        // A light line directly below its dark line, which rounding would separate at 144 DPI.
        const LONG y = ++number % 2 == 0 ? below : at.top;
        skin_.drawLine(dc, number, {at.left, y}, {at.right, y});
        below = y + thinLine();
    }
}

void Form1Window::paintResultArea(HDC dc, const RECT& client) const {
    skin_.draw(dc, Skin::Piece::ResultArea, client);
    if (progress_.empty()) return;
    const std::wstring text = widen(progress_);
    RECT place = progressPlace();
    const ScopedSelectObject font(dc, progressFont_.get());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(
        dc, static_cast<COLORREF>(skin_.textColour(Skin::TextRole::Plain, palette::quietText)));
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &place,
              DT_NOPREFIX | DT_SINGLELINE | DT_RIGHT | DT_END_ELLIPSIS);
}

void Form1Window::showProgress(std::string text) {
    if (text == progress_) return;
    progress_ = std::move(text);
    const RECT place = progressPlace();
    InvalidateRect(children_->outer.handle(), &place, FALSE);
}

// Called by a destructor, so no exception may leave it.
void Form1Window::endRun() {
    showProgress({});
    children_->web.runEnded();
    try {
        acceptDrops();
    } catch (...) {
        reportCurrentFailure();
    }
}

void Form1Window::acceptDrops() {
    addressDrop_.emplace(
        handle(), [this] { return IsWindowEnabled(handle()) != FALSE; },
        [this](std::string_view text) { takeAddress(text); });
}

// The result area covers the input controls. They are hidden while it is shown, so that the Tab key
// never moves the focus to a control that the user cannot see.
void Form1Window::coverControls(bool covered) {
    input_.controlsChanged();
    const HWND area = children_->outer.handle();
    const HWND focus = GetFocus();
    if (covered && focus != area && !IsChild(area, focus)) SetFocus(children_->output.handle());
    for (const ControlDesign& design : controlDesigns())
        if (design.shown == Shown::Covered)
            ShowWindow(children_->handle(design.name), covered ? SW_HIDE : SW_SHOWNA);
    if (covered) return;
    if (!children_->form.linkin.Enabled()) {
        SetFocus(children_->handle("UniXPButton1"));
        return;
    }
    // Selects the old address, so that the next one replaces it, as in a browser's address bar.
    const HWND address = children_->linkin->editHandle();
    SetFocus(address);
    Edit_SetSel(address, 0, -1);
}

// Whether a key press is a paste command outside the address box and outside the browser, whose
// pages have their own text fields.
bool Form1Window::pastesAddress(const MSG& message) const {
    if (message.message != WM_KEYDOWN || (HIWORD(message.lParam) & KF_REPEAT) != 0) return false;
    // Control together with Alt is AltGr.
    const bool control = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool paste = message.wParam == 'V'         ? control && !shift
                       : message.wParam == VK_INSERT ? shift && !control
                                                     : false;
    return paste && message.hwnd != children_->linkin->editHandle() &&
           !IsChild(children_->web.handle(), message.hwnd);
}

void Form1Window::takeAddress(std::string_view text) {
    form().takeAddress(text);
    if (form().outer.Visible() || !form().linkin.Enabled()) return;
    const HWND address = children_->linkin->editHandle();
    SetFocus(address);
    // The address box now has the focus and handles the next paste itself. Because the address is
    // selected, that paste replaces it.
    Edit_SetSel(address, 0, -1);
}

// Handles keys before IsDialogMessage does: Escape closes the result area, Enter in the address box
// presses Download.
bool Form1Window::intercept(MSG& message) {
    isButton& closeButton = form().isButton1;
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE && form().outer.Visible() &&
        closeButton.Enabled() && GetCapture() == nullptr) {
        closeButton.activate();
        return true;
    }
    if (pastesAddress(message)) {
        if (const auto text = clipboardText(handle())) takeAddress(*text);
        return true;
    }
    const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    if (key && !canTakeKeys(message.hwnd, handle())) {
        // The key was queued for a control that has been hidden or disabled since. IsDialogMessage
        // must not get it, because it would search a hidden container for an access key without
        // end. A key without Alt is dropped, and a key with Alt is sent to the main window.
        if (message.message < WM_SYSKEYDOWN) return true;
        message.hwnd = handle();
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN &&
        message.hwnd == children_->linkin->editHandle()) {
        // A held key presses Download only once.
        if ((HIWORD(message.lParam) & KF_REPEAT) == 0) form().UniXPButton1.activate();
        return true;
    }
    return IsDialogMessageW(handle(), &message) != FALSE;
}

InputEvent::Target Form1Window::inputTargetOf(HWND window) const {
    using Target = InputEvent::Target;
    if (!children_) return Target::Control;
    if (window == children_->handle("isButton2") || window == children_->quitTarget->handle())
        return Target::QuitButton;
    const bool dragged = window == handle() || window == children_->handle("Label5") ||
                         window == children_->topendskin.handle();
    return dragged ? Target::Frame : Target::Control;
}

void Form1Window::followContrast() {
    skin_.setContrast(Skin::systemContrast());
    colours_.setHighContrast(highContrast());
    // The buttons store plain colours, which came from the previous colour scheme. In high contrast
    // the buttons do not use them.
    if (!highContrast()) {
        const auto text = static_cast<OleColour>(colours_.colour(ButtonTextColour));
        for (isButton* button : {&form().UniXPButton1, &form().isButton1, &form().isButton2})
            button->FontHighlightColor(text);
        for (isButton* button : {&form().UniXPButton1, &form().isButton2}) button->FontColor(text);
    }
    children_->output.systemColoursChanged();
    repaintAll();
}

void Form1Window::repaintAll() {
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void Form1Window::storeFocus() {
    if (IsChild(handle(), GetFocus())) lastFocus_ = GetFocus();
}

void Form1Window::restoreFocus() {
    const bool usable =
        IsChild(handle(), lastFocus_) && IsWindowVisible(lastFocus_) && IsWindowEnabled(lastFocus_);
    SetFocus(usable ? lastFocus_ : GetNextDlgTabItem(handle(), nullptr, FALSE));
}

void Form1Window::close() {
    // During a run, a catcher on the stack still uses the controls. It cannot be unwound, so the
    // process is ended.
    if (input_.running()) desktop_.endProgram();
    ShowWindow(handle(), SW_HIDE);
    pump_.quit(0);
}

}  // namespace velvox
