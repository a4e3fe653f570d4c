#include "controls/button/is_button_face_win32.h"

#include <algorithm>

#include "base/system_win32.h"

namespace velvox {
namespace {

// A surface keeps its pixels as 0x00RRGGBB.
constexpr std::uint32_t swapped(std::uint32_t colour) {
    return ((colour & 0xFF) << 16) | (colour & 0xFF00) | ((colour >> 16) & 0xFF);
}

}  // namespace

ButtonFace::ButtonFace(int width, int height)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), dc_(CreateCompatibleDC(nullptr)) {
    if (!dc_) throwLastError("CreateCompatibleDC");
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width_;
    info.bmiHeader.biHeight = -height_;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_.reset(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!bitmap_) throwLastError("CreateDIBSection");
    bits_ = static_cast<std::uint32_t*>(bits);
    previous_ = SelectObject(dc_.get(), bitmap_.get());
}

ButtonFace::~ButtonFace() {
    SelectObject(dc_.get(), previous_);
}

// The system may still hold back drawing calls when the pixels are touched directly.
void ButtonFace::settle() {
    if (drawnBySystem_) GdiFlush();
    drawnBySystem_ = false;
}

Rgb ButtonFace::at(int x, int y) {
    if (!holds(x, y)) return -1;
    settle();
    return static_cast<Rgb>(swapped(bits_[y * width_ + x]));
}

void ButtonFace::pixel(int x, int y, Rgb colour) {
    if (!holds(x, y)) return;
    settle();
    bits_[y * width_ + x] = swapped(static_cast<std::uint32_t>(colour));
}

void ButtonFace::line(int x1, int y1, int x2, int y2, Rgb colour) {
    const OwnedPen pen(CreatePen(PS_SOLID, 1, static_cast<COLORREF>(colour)));
    const Selected selected(dc(), pen.get());
    MoveToEx(dc(), x1, y1, nullptr);
    LineTo(dc(), x2, y2);
}

void ButtonFace::frame(int left, int top, int right, int bottom, Rgb colour) {
    line(left, top, right, top, colour);
    line(right, top, right, bottom, colour);
    line(right, bottom, left, bottom, colour);
    line(left, bottom, left, top, colour);
}

void ButtonFace::fill(const RECT& area, Rgb colour) {
    const OwnedBrush brush(CreateSolidBrush(static_cast<COLORREF>(colour)));
    FillRect(dc(), &area, brush.get());
}

void ButtonFace::gradient(const RECT& area, Rgb top, Rgb bottom) {
    const int rows = area.bottom - area.top;
    for (int row = 0; row < rows; ++row) {
        const Rgb colour = blend(top, bottom, row, rows);
        for (int x = area.left; x < area.right; ++x) pixel(x, area.top + row, colour);
    }
}

void ButtonFace::copyTo(HDC target, int x, int y, HRGN region) {
    const int saved = SaveDC(target);
    if (region) {
        // Clipping is in device units, wherever the target puts its origin.
        POINT origin{x, y};
        LPtoDP(target, &origin, 1);
        OffsetRgn(region, origin.x, origin.y);
        ExtSelectClipRgn(target, region, RGN_AND);
    }
    BitBlt(target, x, y, width_, height_, dc(), 0, 0, SRCCOPY);
    RestoreDC(target, saved);
}

}  // namespace velvox
