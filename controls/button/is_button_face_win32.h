// A memory surface. A push button is drawn on it and then copied to the screen in one step.
#pragma once

#include <windows.h>

#include <cstdint>

#include "base/owned_win32.h"
#include "controls/button/pixel_view.h"

namespace velvox {

/// A 32-bit surface with both a device context and direct access to its pixels.
class ButtonFace {
 public:
    /// `width` and `height` are in pixels; values below 1 become 1. Throws RuntimeFailure
    /// (Platform) when the system has no memory for the surface.
    ButtonFace(int width, int height);
    ~ButtonFace();
    ButtonFace(const ButtonFace&) = delete;
    ButtonFace& operator=(const ButtonFace&) = delete;

    /// For GDI drawing calls. GDI may queue the calls: call `GdiFlush` before accessing the pixels.
    HDC dc() const noexcept { return dc_.get(); }

    PixelView pixels() const noexcept { return {bits_, width_, height_}; }

    /// Copies the surface to (x, y). With a region, which is relative to the surface's top left
    /// corner, only the part inside the region is copied.
    void copyTo(HDC target, int x, int y, HRGN region = nullptr) const;

 private:
    int width_;
    int height_;
    std::uint32_t* bits_ = nullptr;
    OwnedMemoryDc dc_;
    OwnedBitmap bitmap_;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace velvox
