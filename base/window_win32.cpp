#include "base/window_win32.h"

#include <exception>
#include <utility>

#include "base/accessible_name_win32.h"
#include "base/busy_pointer_win32.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

FailureReporter& failureReporter() {
    static FailureReporter reporter;
    return reporter;
}

HWND createWindow(const WindowRequest& request, void* parameter) {
    const RECT& at = request.bounds;
    const HWND window =
        CreateWindowExW(request.extendedStyle, request.className, request.text.c_str(),
                        request.style, at.left, at.top, at.right - at.left, at.bottom - at.top,
                        request.parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(request.id)),
                        GetModuleHandleW(nullptr), parameter);
    if (!window) throwLastError("CreateWindowEx");
    return window;
}

// Allocates no memory itself, because the failure may be a failed allocation.
void report(const char* text) noexcept {
    try {
        if (failureReporter())
            failureReporter()(text);
        else
            OutputDebugStringA(text);
    } catch (...) {
        OutputDebugStringA("The error report itself failed.\n");
    }
}

}  // namespace

void setFailureReporter(FailureReporter reporter) {
    failureReporter() = std::move(reporter);
}

void reportCurrentFailure() noexcept {
    try {
        throw;
    } catch (const std::exception& failure) {
        report(failure.what());
    } catch (...) {
        report("An unknown error has occurred.");
    }
}

void Window::registerClass(const WindowRequest& request) {
    WNDCLASSEXW c{}, known{};
    c.cbSize = known.cbSize = sizeof c;
    c.hInstance = GetModuleHandleW(nullptr);
    if (GetClassInfoExW(c.hInstance, request.className, &known)) return;
    const auto icon = [&](int width, int height) {
        return static_cast<HICON>(LoadImageW(c.hInstance, MAKEINTRESOURCEW(request.iconId),
                                             IMAGE_ICON, GetSystemMetrics(width),
                                             GetSystemMetrics(height), LR_SHARED));
    };
    c.style = request.classStyle;
    c.lpfnWndProc = &Window::thunk;
    c.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    if (request.iconId) {
        c.hIcon = icon(SM_CXICON, SM_CYICON);
        c.hIconSm = icon(SM_CXSMICON, SM_CYSMICON);
    }
    c.lpszClassName = request.className;
    if (!RegisterClassExW(&c)) throwLastError("RegisterClassEx");
}

Window::~Window() {
    if (!handle_) return;
    // The derived class is already destroyed, so the last messages must not reach its handler.
    SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
    destroy();
}

void Window::create(const WindowRequest& request) {
    registerClass(request);
    createWindow(request, this);
}

void Window::destroy() noexcept {
    if (handle_) DestroyWindow(handle_);
}

void Window::attach(HWND window) noexcept {
    handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

LRESULT Window::dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                         WNDPROC fallback) noexcept {
    if (BusyPointer::onMessage(message)) return TRUE;
    onAccessibilityMessage(window, message);
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    std::optional<LRESULT> answer;
    if (self) {
        try {
            answer = self->onMessage(message, wParam, lParam);
        } catch (...) {
            reportCurrentFailure();
            answer = 0;
        }
        if (message == WM_NCDESTROY) {
            // onMessage may have destroyed the object, so look it up again.
            self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
            if (self) self->handle_ = nullptr;
            SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        }
    }
    return answer ? *answer : CallWindowProcW(fallback, window, message, wParam, lParam);
}

LRESULT CALLBACK Window::thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE)
        static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams)
            ->attach(window);
    return dispatch(window, message, wParam, lParam, &DefWindowProcW);
}

void SystemControl::create(const WindowRequest& request) {
    attach(createWindow(request, nullptr));
    // SetWindowSubclass would do the same, but under Wine it takes 0.03 ms for each message.
    previous_ = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
        handle(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&SystemControl::thunk)));
    if (!previous_) throwLastError("SetWindowLongPtr");
}

WNDPROC SystemControl::procedureOf(HWND window) {
    const auto* self = static_cast<SystemControl*>(
        reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA)));
    if (self) return self->previous_;
    // The object was destroyed first. The class is unknown if the window was destroyed as well.
    const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
    return procedure ? procedure : &DefWindowProcW;
}

LRESULT SystemControl::defaultHandling(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(procedureOf(window), window, message, wParam, lParam);
}

LRESULT CALLBACK SystemControl::thunk(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept {
    return dispatch(window, message, wParam, lParam, procedureOf(window));
}

}  // namespace velvox
