// The window wrapper: all window classes of the program share one window procedure. It lets no
// exception escape and calls no handler before WM_NCCREATE or after WM_NCDESTROY.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/control.h"

namespace velvox {

/// Shows the user the text of an exception that reached a callback of Windows. The program sets the
/// reporter once; without one the text goes to the debugger.
using FailureReporter = std::function<void(std::string_view text)>;
void setFailureReporter(FailureReporter reporter);

/// Reports the exception being handled. Callbacks call this in their catch blocks.
void reportCurrentFailure() noexcept;

/// Parameters of a new window. Bounds are in pixels, relative to the parent's client area.
struct WindowRequest {
    const wchar_t* className = nullptr;
    std::wstring text{};
    DWORD style = 0;
    DWORD extendedStyle = 0;
    RECT bounds{};
    HWND parent = nullptr;
    int id = 0;           ///< for child windows only
    UINT classStyle = 0;  ///< used, like iconId, only for the first window of a class
    int iconId = 0;       ///< resource number of the icon, 0 for none
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

    /// Handles a message, or returns nullopt to leave it to DefWindowProc.
    virtual std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    /// Makes this object receive the messages of `window`.
    void attach(HWND window) noexcept;
    /// Passes a message to `onMessage` of the window's object and to `fallback` if that does not
    /// handle it.
    static LRESULT dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                            WNDPROC fallback) noexcept;

 private:
    static void registerClass(const WindowRequest& request);
    static LRESULT CALLBACK thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND handle_ = nullptr;
};

/// A window of one of the system's classes; its messages reach `onMessage` first.
class SystemControl : public Window {
 protected:
    /// Creates the window. Throws RuntimeFailure (Platform).
    void create(const WindowRequest& request);

    /// What the window did with a message before this object. Does nothing after the window is
    /// destroyed.
    static LRESULT defaultHandling(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
    static WNDPROC procedureOf(HWND window);
    static LRESULT CALLBACK thunk(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    WNDPROC previous_ = nullptr;
};

}  // namespace velvox
