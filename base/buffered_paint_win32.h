#pragma once

#include <windows.h>

#include "base/owned_win32.h"

namespace velvox {

/// Paints without flicker: drawing goes into a memory DC, and the destructor copies the result to
/// the target. The memory DC uses the target's coordinates.
class BufferedPaint {
 public:
    /// `area` is the rectangle of the target to paint, in pixels.
    BufferedPaint(HDC target, const RECT& area)
        : target_(target),
          area_(area),
          dc_(CreateCompatibleDC(target)),
          bitmap_(CreateCompatibleBitmap(target, area.right - area.left, area.bottom - area.top)),
          selected_(dc_.get(), bitmap_.get()) {
        SetWindowOrgEx(dc_.get(), area.left, area.top, nullptr);
    }
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint() {
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top,
               dc_.get(), area_.left, area_.top, SRCCOPY);
    }

    HDC dc() const noexcept { return dc_.get(); }

 private:
    HDC target_;
    RECT area_;
    OwnedMemoryDc dc_;
    OwnedBitmap bitmap_;
    ScopedSelectObject selected_;
};

}  // namespace velvox
