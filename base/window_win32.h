// The window wrapper: every window class of the program runs through one thunk, which keeps
// exceptions inside and dispatches nothing before creation has begun or after the last message.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/control.h"

namespace velvox {

/// Reports an exception that reached a callback boundary to the user. Set once by the program;
/// without one the text goes to the debugger.
using FailureReporter = std::function<void(std::string_view text)>;
void setFailureReporter(FailureReporter reporter);

/// Reports the exception under way. For catch blocks at a callback boundary.
void reportCurrentFailure() noexcept;

/// What a window is created with. Bounds are in pixels, relative to the parent's client area.
struct WindowRequest {
    const wchar_t* className = nullptr;
    std::wstring text{};
    DWORD style = 0;
    DWORD extendedStyle = 0;
    RECT bounds{};
    HWND parent = nullptr;
    int id = 0;           ///< child windows only
    UINT classStyle = 0;  ///< counts at the first window of the class
    int iconId = 0;       ///< resource of the class's icon, 0 for none; the first window's counts
};

/// A window whose class this program registers.
class Window {
 public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null before creation and after destruction.
    HWND handle() const noexcept { return handle_; }

 protected:
    /// Creates the window. Throws RuntimeFailure (Platform).
    void create(const WindowRequest& request);
    void destroy() noexcept;

    /// Handles a message; returns nullopt for the system's default.
    virtual std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

 private:
    static void registerClass(const WindowRequest& request);
    static LRESULT CALLBACK thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
};

/// A window of one of the system's classes, whose messages pass through `onMessage` first.
class SystemControl {
 public:
    SystemControl() = default;
    SystemControl(const SystemControl&) = delete;
    SystemControl& operator=(const SystemControl&) = delete;
    virtual ~SystemControl();

    HWND handle() const noexcept { return handle_; }

 protected:
    void create(const WindowRequest& request);

    /// Handles a message; returns nullopt for the class's own procedure.
    virtual std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

 private:
    static LRESULT CALLBACK thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                  UINT_PTR id, DWORD_PTR self) noexcept;

    HWND handle_ = nullptr;
};

}  // namespace velvox
