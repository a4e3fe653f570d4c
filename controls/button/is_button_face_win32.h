// The memory surface that one picture of a push button is drawn on before it is copied to the
// screen at once.
#pragma once

#include <windows.h>

#include <cstdint>

#include "base/colour.h"
#include "base/owned_win32.h"

namespace velvox {

/// A 32-bit surface with both a device context and direct access to its pixels. Coordinates are
/// pixels; what lies outside is cut off.
class ButtonFace {
 public:
    /// Throws RuntimeFailure (Platform) when the system has no memory for it.
    ButtonFace(int width, int height);
    ~ButtonFace();
    ButtonFace(const ButtonFace&) = delete;
    ButtonFace& operator=(const ButtonFace&) = delete;

    int width() const noexcept { return width_; }
    int height() const noexcept { return height_; }
    RECT rect() const noexcept { return {0, 0, width_, height_}; }

    /// For the system's own drawing calls.
    HDC dc() noexcept {
        drawnBySystem_ = true;
        return dc_.get();
    }

    Rgb at(int x, int y);
    void pixel(int x, int y, Rgb colour);

    /// From the first point to the last, which itself is not drawn, with a pen one pixel wide.
    void line(int x1, int y1, int x2, int y2, Rgb colour);

    /// The four sides of a rectangle whose corners are both drawn.
    void frame(int left, int top, int right, int bottom, Rgb colour);

    /// Right and bottom are outside.
    void fill(const RECT& area, Rgb colour);

    /// Horizontal lines over the rows of `area`, from `top` to `bottom` colour.
    void gradient(const RECT& area, Rgb top, Rgb bottom);

    /// Only what lies in `region`, given relative to the picture's corner, or all for none.
    void copyTo(HDC target, int x, int y, HRGN region = nullptr);

 private:
    void settle();
    bool holds(int x, int y) const noexcept {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }

    int width_;
    int height_;
    std::uint32_t* bits_ = nullptr;
    bool drawnBySystem_ = false;
    OwnedMemoryDc dc_;
    OwnedBitmap bitmap_;
    HGDIOBJ previous_ = nullptr;
};

}  // namespace velvox
