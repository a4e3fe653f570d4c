#include "base/buffered_paint_win32.h"

#include <algorithm>
#include <utility>

namespace velvox {

BufferedPaint::Surface& BufferedPaint::kept() noexcept {
    static Surface surface;  // used on the UI thread only
    return surface;
}

// A drawing inside another drawing gets a surface of its own.
BufferedPaint::Surface BufferedPaint::takeSurface(SIZE size) {
    Surface last = std::exchange(kept(), {});
    if (last.dc && size.cx <= last.size.cx && size.cy <= last.size.cy) return last;
    const WindowDc screen(nullptr);
    Surface larger;
    larger.size = {std::max(size.cx, last.size.cx), std::max(size.cy, last.size.cy)};
    larger.bitmap.reset(CreateCompatibleBitmap(screen.get(), larger.size.cx, larger.size.cy));
    larger.dc.reset(CreateCompatibleDC(screen.get()));
    if (!SelectObject(larger.dc.get(), larger.bitmap.get())) return {};
    return larger;
}

BufferedPaint::BufferedPaint(HDC target, const RECT& area)
    : target_(target),
      area_(area),
      surface_(takeSurface({area.right - area.left, area.bottom - area.top})),
      savedState_(SaveDC(dc())) {
    if (surface_.dc) SetWindowOrgEx(dc(), area.left, area.top, nullptr);
    IntersectClipRect(dc(), area.left, area.top, area.right, area.bottom);
}

BufferedPaint::~BufferedPaint() {
    RestoreDC(dc(), savedState_);
    if (surface_.dc)
        BitBlt(target_, area_.left, area_.top, area_.right - area_.left, area_.bottom - area_.top,
               dc(), 0, 0, SRCCOPY);
    // A drawing inside this one may have kept a larger surface.
    if (surface_.size.cx >= kept().size.cx) std::swap(kept(), surface_);
}

}  // namespace velvox
