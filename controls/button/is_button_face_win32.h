// The memory surface that one picture of a push button is drawn on before it is copied to the
// screen at once.
#pragma once

#include <windows.h>

#include <cstdint>

#include "base/owned_win32.h"
#include "controls/button/pixel_view.h"

namespace velvox {

/// A 32-bit surface with both a device context and direct access to its pixels.
class ButtonFace {
 public:
    /// Pixels; a side shorter than 1 becomes 1. Throws RuntimeFailure (Platform) when the system
    /// has no memory for it.
    ButtonFace(int width, int height);
    ~ButtonFace();
    ButtonFace(const ButtonFace&) = delete;
    ButtonFace& operator=(const ButtonFace&) = delete;

    /// For the system's own drawing calls. The system may hold them back: call `GdiFlush` before
    /// touching the pixels.
    HDC dc() const noexcept { return dc_.get(); }

    PixelView pixels() const noexcept { return {bits_, width_, height_}; }

    /// Only what lies in `region`, given relative to the picture's corner, or all for none.
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
