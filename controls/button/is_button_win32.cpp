#include "controls/button/is_button_win32.h"

#include <windowsx.h>

#include "base/accessible_name_win32.h"
#include "base/open_address_win32.h"
#include "base/system_win32.h"
#include "controls/button/is_button_about_win32.h"
#include "controls/button/is_button_paint_win32.h"

namespace velvox {
namespace {

constexpr const wchar_t* className = L"isButton";
constexpr int classicStyle = 0;

static_assert(WM_MOUSEMOVE == 512 && WM_MOUSELEAVE == 675);
static_assert(WM_THEMECHANGED == 794 && WM_SYSCOLORCHANGE == 21);

bool isRepeat(LPARAM keyFlags) {
    return (keyFlags & (1 << 30)) != 0;
}

// With a high contrast scheme the button is drawn in system colours with plain edges, because
// stored colours and gradients may be illegible in that scheme.
void followContrast(ButtonLook& look) {
    if (!highContrast()) return;
    look.customColours = false;
    look.style = classicStyle;
}

// The background colour of the container.
Rgb surroundingsOf(HWND window, HDC dc, const SystemColours& colours) {
    const HWND parent = GetParent(window);
    const auto brush = reinterpret_cast<HBRUSH>(SendMessageW(
        parent, WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(window)));
    LOGBRUSH style{};
    if (brush && GetObjectW(brush, sizeof style, &style) && style.lbStyle == BS_SOLID)
        return static_cast<Rgb>(style.lbColor);
    return colours.colour(ButtonFaceColour);
}

SIZE clientSize(HWND window) {
    const RECT client = clientArea(window);
    return {client.right, client.bottom};
}

}  // namespace

isButtonWindow::isButtonWindow(isButton& model, HWND parent, int id, const ButtonServices& services)
    : model_(model),
      modelAlive_(model.lifetime()),
      services_(services),
      toolTip_(services.toolTips) {
    create({.className = className,
            .text = widen(model.Caption()),
            .style = WS_CHILD | WS_TABSTOP | WS_CLIPSIBLINGS | (model.Visible() ? WS_VISIBLE : 0U) |
                     (model.Enabled() ? 0U : WS_DISABLED),
            .bounds = toPixels(model.bounds()),
            .parent = parent,
            .id = id,
            .classStyle = CS_DBLCLKS});
    setAccessibleName(handle(), {}, ROLE_SYSTEM_PUSHBUTTON);
    model_.setObserver(this);
    model_.setHost(this);
    detectTracking();
    cutOutline();
}

isButtonWindow::~isButtonWindow() {
    if (!modelAlive_.expired()) {
        model_.setObserver(nullptr);
        model_.setHost(nullptr);
    }
    // Messages that arrive during the rest of the destruction are ignored.
    modelAlive_.reset();
    onDestroy();
    destroy();
}

void isButtonWindow::controlChanged(ControlChange change) {
    if (!handle()) return;
    switch (change) {
        case ControlChange::Bounds: {
            const RECT at = toPixels(model_.bounds());
            SetWindowPos(handle(), nullptr, at.left, at.top, at.right - at.left, at.bottom - at.top,
                         SWP_NOZORDER | SWP_NOACTIVATE);
            break;
        }
        case ControlChange::Visible:
            ShowWindow(handle(), model_.Visible() ? SW_SHOWNA : SW_HIDE);
            break;
        case ControlChange::Enabled: {
            const std::weak_ptr<const void> alive = alive_;
            enableWindow(handle(), model_.Enabled());
            if (!alive.expired()) repaint();
            break;
        }
        case ControlChange::Text:
            SetWindowTextW(handle(), widen(model_.Caption()).c_str());
            repaint();
            break;
        case ControlChange::Other: detectTracking(); break;
        default: repaint(); break;
    }
}

// --- pointer tracking -----------------------------------------------------------------------

// Tracks the pointer only at run time, because a form that is being designed shows no hover.
void isButtonWindow::detectTracking() {
    if (!model_.userMode()) tracksPointer_ = false;
    if (!model_.userMode() || tracksPointer_) return;
    tracker_ = LeaveTracker(services_.procedures);
    model_.tracking(tracker_.available());
    tracksPointer_ = tracker_.available() != Tracking::None;
}

// Returns false if the model's handlers have destroyed the window or the model.
bool isButtonWindow::track(UINT message, LPARAM lParam) {
    const std::weak_ptr<const void> alive = alive_;
    try {
        beforeDefault(message, lParam);
    } catch (...) {
        reportCurrentFailure();
    }
    return !alive.expired() && !modelAlive_.expired() && handle();
}

void isButtonWindow::beforeDefault(UINT message, LPARAM lParam) {
    if (pressing_) {
        // During a press the capture also reports moves outside the button, and some systems send
        // WM_MOUSELEAVE before the capture ends. Both messages are ignored here, because release()
        // and captureLost() decide whether the hover ends.
        if (message == WM_MOUSELEAVE) return;
        if (message == WM_MOUSEMOVE && !over({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) return;
    }
    // When disabling or hiding has already ended the hover, the model must not see a second leave.
    if (message == WM_MOUSELEAVE && !model_.mouseInside()) return;
    model_.zSubclass_Proc(message);
}

void isButtonWindow::requestLeaveNotice() {
    tracker_.request(handle());
}

void isButtonWindow::showToolTip() {
    if (handle()) toolTip_.show(model_.toolTipRecord(), handle());
}

bool isButtonWindow::over(POINT at) const {
    const SIZE size = clientSize(handle());
    return at.x >= 0 && at.y >= 0 && at.x < size.cx && at.y < size.cy;
}

bool isButtonWindow::pointerIsOver() const {
    POINT at{};
    GetCursorPos(&at);
    return WindowFromPoint(at) == handle();
}

void isButtonWindow::endHover() {
    if (tracksPointer_ && model_.mouseInside()) model_.pointerLeft();
}

// --- mouse and keyboard ---------------------------------------------------------------------

void isButtonWindow::press(bool again) {
    const std::weak_ptr<const void> alive = alive_;
    if (GetFocus() != handle()) SetFocus(handle());
    if (alive.expired() || !handle()) return;
    focusCue_ = false;
    pressing_ = true;
    SetCapture(handle());
    watchPress();
    again ? model_.doubleClick() : model_.mouseDown(MouseButton::Left);
}

void isButtonWindow::release(POINT at) {
    if (!pressing_) return;
    const bool inside = over(at);
    pressing_ = false;
    pressWatch_.stop();
    ReleaseCapture();
    model_.mouseUp(MouseButton::Left);
    // If there is no hover to end, the press must be cancelled; otherwise a toggle button would
    // keep looking pressed.
    if (!inside) return model_.mouseInside() ? endHover() : model_.pressCancelled();
    // The request made when the pointer entered may have been used up during the press.
    if (model_.mouseInside()) requestLeaveNotice();
    model_.click();
}

// Another window has taken the mouse capture: the press ends without a click.
void isButtonWindow::captureLost() {
    if (!pressing_) return;
    pressing_ = false;
    if (!spaceHeld_) pressWatch_.stop();
    model_.pressCancelled();
    if (!pointerIsOver()) return endHover();
    if (model_.mouseInside()) requestLeaveNotice();
}

// Ends a press by mouse or keyboard that can no longer be completed.
void isButtonWindow::endPress() {
    spaceHeld_ = false;
    pressWatch_.stop();
    const std::weak_ptr<const void> alive = alive_;
    if (pressing_) ReleaseCapture();
    if (!alive.expired() && !modelAlive_.expired()) model_.pressCancelled();
}

// Called when the window or one of its ancestors has been hidden or disabled.
void isButtonWindow::endUse() {
    const std::weak_ptr<const void> alive = alive_;
    endPress();
    if (!alive.expired() && !modelAlive_.expired()) endHover();
}

void isButtonWindow::watchPress() {
    pressWatch_.start(handle(), [this] { endUse(); });
}

std::optional<LRESULT> isButtonWindow::onMouse(UINT message, LPARAM lParam) {
    const POINT at{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_LBUTTONDOWN: press(false); return 0;
        case WM_LBUTTONDBLCLK: press(true); return 0;
        case WM_LBUTTONUP: release(at); return 0;
        case WM_MOUSEMOVE:
            if (pressing_) model_.pointerDragged(over(at));
            return 0;
        // The default procedure opens the container's context menu.
        case WM_RBUTTONUP: model_.mouseUp(MouseButton::Right); return std::nullopt;
        case WM_MBUTTONUP: model_.mouseUp(MouseButton::Middle); return std::nullopt;
        default: return std::nullopt;
    }
}

// Key repeats are ignored, because a held Space or Enter key must click only once.
std::optional<LRESULT> isButtonWindow::onKey(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (wParam != VK_SPACE && wParam != VK_RETURN) return std::nullopt;
            if (isRepeat(lParam)) return 0;
            focusCue_ = true;
            if (wParam == VK_RETURN) {
                model_.activate();
            } else {
                spaceHeld_ = true;
                watchPress();
                model_.keyDown(VK_SPACE);
            }
            return 0;
        case WM_KEYUP:
            if (wParam != VK_SPACE) return std::nullopt;
            if (!pressing_) pressWatch_.stop();
            if (std::exchange(spaceHeld_, false)) model_.keyUp(VK_SPACE);
            return 0;
        default:  // WM_CHAR
            if (!isRepeat(lParam) && wParam < 0x80) model_.keyPress(static_cast<char>(wParam));
            return 0;
    }
}

void isButtonWindow::onFocus(bool got) {
    if (got) {
        focusCue_ = GetKeyState(VK_LBUTTON) >= 0;
        return model_.gotFocus();
    }
    const std::weak_ptr<const void> alive = alive_;
    endPress();
    if (!alive.expired() && !modelAlive_.expired()) model_.lostFocus();
}

void isButtonWindow::onDestroy() {
    pressing_ = false;
    pressWatch_.stop();
    toolTip_.destroy();
    face_.reset();
}

std::optional<LRESULT> isButtonWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (modelAlive_.expired()) return std::nullopt;
    if (tracksPointer_ && !track(message, lParam)) return std::nullopt;
    switch (message) {
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paintOnScreen(); return 0;
        case WM_PRINTCLIENT: paintInto(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_SIZE: repaint(); return 0;
        case WM_SETFOCUS: onFocus(true); return 0;
        case WM_KILLFOCUS: onFocus(false); return 0;
        case WM_CAPTURECHANGED: captureLost(); return 0;
        case WM_ENABLE:
        case WM_SHOWWINDOW:
            if (!wParam) endUse();
            return std::nullopt;
        case WM_DESTROY: onDestroy(); return std::nullopt;
        case WM_GETDLGCODE: {
            const auto* asked = reinterpret_cast<const MSG*>(lParam);
            const bool enter = asked && asked->message == WM_KEYDOWN && asked->wParam == VK_RETURN;
            return DLGC_BUTTON | (enter ? DLGC_WANTMESSAGE : 0);
        }
        case BM_CLICK: model_.activate(); return 0;
        case BM_GETCHECK: return model_.Value() ? BST_CHECKED : BST_UNCHECKED;
        case BM_GETSTATE:
            return (model_.Value() ? BST_CHECKED : 0) | (model_.hasFocus() ? BST_FOCUS : 0) |
                   (model_.visualState() == ButtonState::Pressed ? BST_PUSHED : 0);
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CHAR: return onKey(message, wParam, lParam);
        default: break;
    }
    if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) return onMouse(message, lParam);
    return std::nullopt;
}

// --- painting -------------------------------------------------------------------------------

void isButtonWindow::repaint() {
    cutOutline();
    // Paints immediately, because a click's handler may block the message loop for a long time.
    RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_NOERASE | RDW_UPDATENOW);
}

void isButtonWindow::paintOnScreen() {
    ++paints_;
    {
        const PaintScope painting(handle());
        paintInto(painting.dc());
    }
    // Painting may have changed the style (themeRefused()), and the new style may have another
    // outline.
    cutOutline();
}

void isButtonWindow::paintInto(HDC dc) {
    const SIZE size = clientSize(handle());
    if (size.cx <= 0 || size.cy <= 0) return;
    ButtonLook look = model_.look();
    followContrast(look);
    const ButtonScene scene{model_.systemColours(),
                            surroundingsOf(handle(), dc, model_.systemColours()),
                            model_.hasFocus() && focusCue_, thinLine()};
    if (!face_ || face_->pixels().width() != size.cx || face_->pixels().height() != size.cy)
        face_.emplace(size.cx, size.cy);
    if (!paintButton(*face_, look, scene, handle(), services_.themes) && model_.userMode()) {
        model_.themeRefused();
        look = model_.look();
        paintButton(*face_, look, scene, handle(), services_.themes);
    }
    face_->copyTo(dc, 0, 0, buttonRegion(look.style, size.cx, size.cy, thinLine()).get());
}

// Sets the window's region if style or size have changed.
void isButtonWindow::cutOutline() {
    const SIZE size = clientSize(handle());
    const int style = highContrast() ? classicStyle : model_.Style();
    if (outlined_ && style == outlineStyle_ && size.cx == outlineSize_.cx &&
        size.cy == outlineSize_.cy)
        return;
    outlined_ = true;
    outlineStyle_ = style;
    outlineSize_ = size;
    OwnedRegion region = buttonRegion(style, size.cx, size.cy, thinLine());
    // After success the system owns the region.
    if (SetWindowRgn(handle(), region.get(), TRUE)) static_cast<void>(region.release());
}

// --- requests of the model ------------------------------------------------------------------

void isButtonWindow::showAbout() {
    showButtonAbout(GetAncestor(handle(), GA_ROOT), model_.Version());
}

void isButtonWindow::openAddress(std::string_view address) {
    velvox::openAddress(handle(), address);
}

}  // namespace velvox
