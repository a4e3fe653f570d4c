// Owner types for handles of Windows. Each releases its handle exactly once. They count the live
// handles, because not every system reports that number.
#pragma once

#include <windows.h>

#include <atomic>
#include <utility>

namespace velvox {

/// Number of owned handles and COM objects alive in this process.
inline std::atomic<int>& liveHandles() {
    static std::atomic<int> count{0};
    return count;
}

/// Owns a handle and closes it with `Close`. Elsewhere, a parameter of a plain handle type is
/// borrowed.
template <class Handle, auto Close>
class Owned {
 public:
    Owned() noexcept = default;
    explicit Owned(Handle handle) noexcept : handle_(handle) { count(1); }
    Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::exchange(other.handle_, Handle{});
        }
        return *this;
    }
    ~Owned() { reset(); }

    Handle get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != Handle{}; }

    /// Closes the handle and takes over `next`. Keeps the thread's last error.
    void reset(Handle next = Handle{}) noexcept {
        if (handle_) {
            const DWORD error = GetLastError();
            count(-1);
            Close(std::exchange(handle_, Handle{}));
            SetLastError(error);
        }
        handle_ = next;
        count(1);
    }

    /// Gives up the handle without closing it: the caller becomes its owner.
    [[nodiscard]] Handle release() noexcept {
        count(-1);
        return std::exchange(handle_, Handle{});
    }

 private:
    void count(int step) const noexcept {
        if (handle_) liveHandles() += step;
    }

    Handle handle_{};
};

inline void deleteObject(HGDIOBJ object) noexcept {
    DeleteObject(object);
}
inline void deleteDc(HDC dc) noexcept {
    DeleteDC(dc);
}
inline void closeHandle(HANDLE handle) noexcept {
    CloseHandle(handle);
}
inline void destroyIcon(HICON icon) noexcept {
    DestroyIcon(icon);
}
inline void destroyMenu(HMENU menu) noexcept {
    DestroyMenu(menu);
}

using OwnedBitmap = Owned<HBITMAP, &deleteObject>;
using OwnedBrush = Owned<HBRUSH, &deleteObject>;
using OwnedFont = Owned<HFONT, &deleteObject>;
using OwnedPen = Owned<HPEN, &deleteObject>;
using OwnedRegion = Owned<HRGN, &deleteObject>;
using OwnedPalette = Owned<HPALETTE, &deleteObject>;
using OwnedMemoryDc = Owned<HDC, &deleteDc>;
using OwnedHandle = Owned<HANDLE, &closeHandle>;
using OwnedIcon = Owned<HICON, &destroyIcon>;
using OwnedMenu = Owned<HMENU, &destroyMenu>;

/// Selects an object into a DC for the length of a scope.
class ScopedSelectObject {
 public:
    ScopedSelectObject(HDC dc, HGDIOBJ object) noexcept
        : dc_(dc), previous_(SelectObject(dc, object)) {}
    ScopedSelectObject(const ScopedSelectObject&) = delete;
    ScopedSelectObject& operator=(const ScopedSelectObject&) = delete;
    ~ScopedSelectObject() { SelectObject(dc_, previous_); }

 private:
    HDC dc_;
    HGDIOBJ previous_;
};

/// A window's DC, or the screen's for a null window, for the length of a scope.
class WindowDc {
 public:
    enum class Covers { Client, WholeWindow };
    explicit WindowDc(HWND window, Covers what = Covers::Client) noexcept
        : window_(window), dc_(what == Covers::Client ? GetDC(window) : GetWindowDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }

    HDC get() const noexcept { return dc_; }

 private:
    HWND window_;
    HDC dc_;
};

/// Calls BeginPaint, and EndPaint at the end of the scope.
class PaintScope {
 public:
    explicit PaintScope(HWND window) noexcept : window_(window) { BeginPaint(window, &paint_); }
    PaintScope(const PaintScope&) = delete;
    PaintScope& operator=(const PaintScope&) = delete;
    ~PaintScope() { EndPaint(window_, &paint_); }

    HDC dc() const noexcept { return paint_.hdc; }
    const RECT& invalid() const noexcept { return paint_.rcPaint; }

 private:
    HWND window_;
    PAINTSTRUCT paint_;
};

}  // namespace velvox
