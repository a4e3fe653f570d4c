// Helpers for Windows calls: errors, text conversion, colours, screen resolution.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "base/colour.h"
#include "base/control.h"
#include "base/font.h"
#include "base/owned_win32.h"
#include "base/twips.h"

namespace velvox {

/// Throws RuntimeFailure (Platform) with the name of the call and the thread's last error.
[[noreturn]] void throwLastError(const char* call);

/// Throws RuntimeFailure (Platform) if `result` is a failure. Every success code passes, not only
/// S_OK.
void requireSuccess(HRESULT result, const char* call);

/// Convert between bytes (UTF-8) and UTF-16. base/utf16.h says how invalid text is converted.
std::wstring widen(std::string_view bytes);
std::string narrow(std::wstring_view text);

/// A window's text as bytes.
std::string windowText(HWND window);

/// Handles WM_GETTEXT: copies `text` and a final zero into `buffer`, which holds `room` characters,
/// and cuts text that does not fit. Returns the number of characters copied, without the zero.
LRESULT copyText(std::string_view text, WPARAM room, LPARAM buffer);

/// The system colours as GetSysColor returns them at the time of the call.
class CurrentSystemColours : public SystemColours {
 public:
    Rgb colour(int index) const override;
};

/// Whether the user has turned on high contrast in Windows.
bool highContrast();

/// Disables or enables a window. If the window to disable has the focus, the focus first moves to
/// the next tab stop of the form.
void enableWindow(HWND window, bool enabled);

/// The screen's dots per inch as Windows reports them.
int systemDpi();

/// The dots per inch of the program's layout: systemDpi(), or less if fitScreenDpi() has lowered
/// it.
int screenDpi();

/// The conversions of base/twips.h at screenDpi().
inline int toPixels(int twips) {
    return toPixels(twips, screenDpi());
}
inline int toTwips(int pixels) {
    return toTwips(pixels, screenDpi());
}
/// Converts pixels at `designDpi` to pixels at screenDpi().
inline int scaled(int pixels) {
    return scaled(pixels, screenDpi());
}

/// Width of a thin line in pixels, rounded down so that thin lines stay thin.
int thinLine();

/// A window's client area. Its left upper corner is (0, 0).
inline RECT clientArea(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

void fill(HDC dc, const RECT& area, Rgb colour);

/// Draws the system's dotted focus rectangle with a border of thinLine() pixels.
void drawFocusRing(HDC dc, RECT area);

/// Lowers screenDpi() until a layout of the size `twips` fits into the screen's work area. Call
/// this before the first window is created.
void fitScreenDpi(SIZE twips);

/// Converts layout bounds to pixels. Edges are rounded instead of lengths, so that neighbours that
/// touch in twips also touch in pixels.
RECT toPixels(const Bounds& bounds);

/// Creates a 32-bit bitmap of 0x00RRGGBB pixels, the topmost row first, and stores the address of
/// its first pixel in `pixels`. Throws RuntimeFailure (Platform).
OwnedBitmap createPixels(int width, int height, std::uint32_t** pixels = nullptr);

/// Creates the system's font for `font`, with its height scaled to screenDpi().
OwnedFont createFont(const Font& font);

}  // namespace velvox
