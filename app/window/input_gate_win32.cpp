#include "app/window/input_gate_win32.h"

#include <windowsx.h>

namespace velvox {
namespace {

using Kind = InputEvent::Kind;

constexpr unsigned left = 1;
constexpr unsigned right = 2;
constexpr unsigned middle = 3;
constexpr unsigned firstExtra = 3;  // extra mouse button N has the code firstExtra + N

std::optional<InputEvent> event(Kind kind, unsigned code = 0) {
    InputEvent result;
    result.kind = kind;
    result.code = code;
    return result;
}

std::optional<InputEvent> keyEvent(Kind kind, const MSG& message) {
    auto result = event(kind, static_cast<unsigned>(message.wParam));
    result->repeat = (HIWORD(message.lParam) & KF_REPEAT) != 0;
    result->alt = (HIWORD(message.lParam) & KF_ALTDOWN) != 0;
    return result;
}

// The input event of a message; nullopt if the message is not input.
std::optional<InputEvent> eventOf(const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: return keyEvent(Kind::KeyDown, message);
        case WM_KEYUP:
        case WM_SYSKEYUP: return keyEvent(Kind::KeyUp, message);
        case WM_CHAR:
        case WM_DEADCHAR:
        case WM_UNICHAR:
        case WM_SYSCHAR:
        case WM_SYSDEADCHAR: return keyEvent(Kind::Character, message);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_NCLBUTTONDOWN:
        case WM_NCLBUTTONDBLCLK: return event(Kind::Press, left);
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_NCRBUTTONDOWN:
        case WM_NCRBUTTONDBLCLK: return event(Kind::Press, right);
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
        case WM_NCMBUTTONDOWN:
        case WM_NCMBUTTONDBLCLK: return event(Kind::Press, middle);
        case WM_XBUTTONDOWN:
        case WM_XBUTTONDBLCLK:
        case WM_NCXBUTTONDOWN:
        case WM_NCXBUTTONDBLCLK:
            return event(Kind::Press, firstExtra + GET_XBUTTON_WPARAM(message.wParam));
        case WM_LBUTTONUP:
        case WM_NCLBUTTONUP: return event(Kind::Release, left);
        case WM_RBUTTONUP:
        case WM_NCRBUTTONUP: return event(Kind::Release, right);
        case WM_MBUTTONUP:
        case WM_NCMBUTTONUP: return event(Kind::Release, middle);
        case WM_XBUTTONUP:
        case WM_NCXBUTTONUP:
            return event(Kind::Release, firstExtra + GET_XBUTTON_WPARAM(message.wParam));
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE: return event(Kind::Move);
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
        case WM_CONTEXTMENU:
        case BM_CLICK: return event(Kind::Other);
        default: return std::nullopt;
    }
}

InputFilter::DoubleClick systemDoubleClick() {
    return {GetDoubleClickTime(), GetSystemMetrics(SM_CXDOUBLECLK),
            GetSystemMetrics(SM_CYDOUBLECLK)};
}

}  // namespace

InputGate::InputGate(MessagePump& pump, TargetOf targetOf)
    : pump_(pump), targetOf_(std::move(targetOf)), filter_(systemDoubleClick()) {
    pump_.accepts = [this](const MSG& message) { return accepts(message); };
}

InputGate::~InputGate() {
    pump_.accepts = nullptr;
}

void InputGate::run(const std::function<void()>& handler) {
    const unsigned message = pump_.currentMessage();
    if (running() || (message != 0 && message == lastStart_)) return;
    lastStart_ = message;
    filter_.setRunning(true);
    pump_.setRunning(true);
    const struct End {
        InputGate& gate;
        ~End() {
            // Keys and clicks made during the run are still in the queue: drop them now.
            gate.pump_.serveInput();
            gate.pointer_.reset();
            gate.filter_.setRunning(false);
            gate.pump_.setRunning(false);
        }
    } end{*this};
    pointer_.emplace();
    handler();
}

void InputGate::windowEnabled(bool enabled) {
    if (!running()) return;
    if (enabled) {
        pointer_.emplace();
    } else {
        pump_.serveInput();
        pointer_.reset();
    }
}

bool InputGate::accepts(const MSG& message) {
    std::optional<InputEvent> input = eventOf(message);
    if (!input) return true;
    input->window = message.hwnd;
    input->target = targetOf_(message.hwnd);
    input->at = {message.pt.x, message.pt.y};
    input->timeMs = message.time;
    if (filter_.accepts(*input)) return true;
    // Sets the busy pointer again, because a window of another library, such as the browser's, may
    // have set its own pointer for this message.
    if (pointer_) pointer_->show();
    return false;
}

}  // namespace velvox
