#include "base/system_win32.h"

#include <olectl.h>

#include <algorithm>

#include "base/runtime_failure.h"
#include "base/twips.h"
#include "base/utf16.h"

namespace velvox {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

void throwLastError(const char* call) {
    const DWORD error = GetLastError();
    throw RuntimeFailure(Fault::Platform,
                         std::string(call) + " failed with error " + std::to_string(error));
}

void requireSuccess(HRESULT result, const char* call) {
    if (SUCCEEDED(result)) return;
    char number[16];
    wsprintfA(number, "0x%08lX", static_cast<unsigned long>(result));
    throw RuntimeFailure(Fault::Platform, std::string(call) + " failed with " + number);
}

std::wstring widen(std::string_view bytes) {
    const std::u16string text = toUtf16(bytes);
    return {reinterpret_cast<const wchar_t*>(text.data()), text.size()};
}

std::string narrow(std::wstring_view text) {
    return toBytes({reinterpret_cast<const char16_t*>(text.data()), text.size()});
}

LRESULT copyText(std::string_view text, WPARAM room, LPARAM buffer) {
    auto* const target = reinterpret_cast<wchar_t*>(buffer);
    if (room == 0 || !target) return 0;
    const std::size_t count = widen(text).copy(target, room - 1);
    target[count] = L'\0';
    return static_cast<LRESULT>(count);
}

std::string windowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    const int copied = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(copied));
    return narrow(text);
}

Rgb CurrentSystemColours::colour(int index) const {
    return static_cast<Rgb>(GetSysColor(index));
}

void enableWindow(HWND window, bool enabled) {
    if (!enabled && GetFocus() == window) {
        const HWND form = GetAncestor(window, GA_ROOT);
        const HWND next = GetNextDlgTabItem(form, window, FALSE);
        SetFocus(next && next != window ? next : form);
    }
    EnableWindow(window, enabled);
}

namespace {

int& layoutDpi() {
    static int dpi = systemDpi();
    return dpi;
}

}  // namespace

int systemDpi() {
    const WindowDc screen(nullptr);
    return GetDeviceCaps(screen.get(), LOGPIXELSY);
}

int screenDpi() {
    return layoutDpi();
}

int thinLine() {
    return std::max(1, screenDpi() / designDpi);
}

void fill(HDC dc, const RECT& area, Rgb colour) {
    const OwnedBrush brush(CreateSolidBrush(static_cast<COLORREF>(colour)));
    FillRect(dc, &area, brush.get());
}

void drawFocusRing(HDC dc, RECT area) {
    for (int i = thinLine(); i > 0; --i) {
        DrawFocusRect(dc, &area);
        InflateRect(&area, -1, -1);
    }
}

void fitScreenDpi(SIZE twips) {
    RECT work{};
    if (!SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0) || IsRectEmpty(&work)) return;
    const LONG across = (work.right - work.left) * twipsPerInch / twips.cx;
    const LONG down = (work.bottom - work.top) * twipsPerInch / twips.cy;
    layoutDpi() = static_cast<int>(std::min({static_cast<LONG>(systemDpi()), across, down}));
}

RECT toPixels(const Bounds& bounds) {
    const int dpi = screenDpi();
    return {toPixels(bounds.left, dpi), toPixels(bounds.top, dpi),
            toPixels(bounds.left + bounds.width, dpi), toPixels(bounds.top + bounds.height, dpi)};
}

OwnedFont createFont(const Font& font) {
    LOGFONTW request{};
    request.lfHeight = -static_cast<LONG>(font.points * screenDpi() / 72.0 + 0.5);
    request.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    request.lfItalic = font.italic;
    request.lfUnderline = font.underline;
    request.lfStrikeOut = font.strikeThrough;
    request.lfCharSet = DEFAULT_CHARSET;
    request.lfQuality = DEFAULT_QUALITY;
    const std::wstring face = widen(font.name).substr(0, LF_FACESIZE - 1);
    face.copy(request.lfFaceName, face.size());
    return OwnedFont(CreateFontIndirectW(&request));
}

OwnedBitmap createPixels(int width, int height, std::uint32_t** pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    OwnedBitmap bitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap) throwLastError("CreateDIBSection");
    if (pixels) *pixels = static_cast<std::uint32_t*>(bits);
    return bitmap;
}

}  // namespace velvox
