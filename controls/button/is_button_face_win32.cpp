#include "controls/button/is_button_face_win32.h"

#include <algorithm>

#include "base/system_win32.h"

namespace velvox {

ButtonFace::ButtonFace(int width, int height)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), dc_(CreateCompatibleDC(nullptr)) {
    if (!dc_) throwLastError("CreateCompatibleDC");
    bitmap_ = createPixels(width_, height_, &bits_);
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
