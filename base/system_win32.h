// Small services of the system: errors, text conversion, colours, screen resolution.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/colour.h"
#include "base/control.h"
#include "base/font.h"
#include "base/owned_win32.h"
#include "base/twips.h"

namespace velvox {

/// Throws RuntimeFailure (Platform) that carries the call's name and the thread's last error.
[[noreturn]] void throwLastError(const char* call);

/// Throws RuntimeFailure (Platform) for a failed HRESULT; every success passes, not only S_OK.
void requireSuccess(HRESULT result, const char* call);

/// Bytes (UTF-8) to the system's UTF-16 and back; see base/utf16.h for what happens to the rest.
std::wstring widen(std::string_view bytes);
std::string narrow(std::wstring_view text);

/// A window's text as bytes.
std::string windowText(HWND window);

/// The reply of a window to WM_GETTEXT: copies `text` and its final zero into the caller's buffer
/// of `room` characters, cut where it does not fit. Returns the characters copied, without the
/// zero.
LRESULT copyText(std::string_view text, WPARAM room, LPARAM buffer);

/// The system's colours as GetSysColor has them now.
class CurrentSystemColours : public SystemColours {
 public:
    Rgb colour(int index) const override;
};

/// Whether the user has asked the system for high contrast.
bool highContrast();

/// Disables or enables a window. A disabled window must not keep the focus: it
/// moves to the next tab stop of the form first.
void enableWindow(HWND window, bool enabled);

/// Dots per inch that the system has for its screen.
int systemDpi();

/// Dots per inch that the program lays out by, for its whole life: the system's, or fewer.
int screenDpi();

/// The conversions of base/twips.h at this screen's resolution, `screenDpi()`.
inline int toPixels(int twips) {
    return toPixels(twips, screenDpi());
}
inline int toTwips(int pixels) {
    return toTwips(pixels, screenDpi());
}
/// Pixels at `designDpi` in pixels of this screen.
inline int scaled(int pixels) {
    return scaled(pixels, screenDpi());
}

/// Pixels of a thin line. Rounded down: it is never blurred into a thick one.
int thinLine();

/// Covers an area with one colour.
void fill(HDC dc, const RECT& area, Rgb colour);

/// The system's dotted rectangle that shows the focus, its dots as wide as a thin line.
void drawFocusRing(HDC dc, RECT area);

/// Lowers screenDpi() so far that a layout of `twips` fits into the screen's work area. To be
/// called before the first window is made.
void fitScreenDpi(SIZE twips);

/// Layout bounds in pixels of this screen. Edges are rounded, not lengths, so that neighbours
/// that touch in twips touch in pixels.
RECT toPixels(const Bounds& bounds);

/// The platform font; its character height follows the points at the screen's resolution.
OwnedFont createFont(const Font& font);

}  // namespace velvox
