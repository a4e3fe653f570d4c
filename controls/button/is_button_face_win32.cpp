#include "controls/button/is_button_face_win32.h"

#include <algorithm>

#include "base/system_win32.h"

namespace velvox {

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

void ButtonFace::copyTo(HDC target, int x, int y, HRGN region) const {
    const int saved = SaveDC(target);
    if (region) {
        // A clip region is in device units, so it must be moved by the target's origin as well.
        POINT origin{x, y};
        LPtoDP(target, &origin, 1);
        OffsetRgn(region, origin.x, origin.y);
        ExtSelectClipRgn(target, region, RGN_AND);
    }
    BitBlt(target, x, y, width_, height_, dc_.get(), 0, 0, SRCCOPY);
    RestoreDC(target, saved);
}

}  // namespace velvox
