#pragma once

#include <windows.h>

#include "base/owned_win32.h"

namespace velvox {

/// Drawing in memory that reaches its target in one copy, so that nothing flickers. The memory DC
/// has the target's coordinates: what is drawn at (x, y) lands at (x, y). The memory is kept for
/// the next drawing and starts with what that one left, so an area has to be drawn completely.
class BufferedPaint {
 public:
    /// `area` is the part of the target that is drawn, in pixels.
    BufferedPaint(HDC target, const RECT& area);
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint();

    HDC dc() const noexcept { return surface_.dc.get(); }

 private:
    struct Surface {
        SIZE size{};
        OwnedBitmap bitmap;
        OwnedMemoryDc dc;  // after the bitmap, which it holds until it is deleted
    };
    // Fresh memory costs more than most drawings: the system has to map each of its pages.
    static Surface& kept() noexcept;
    static Surface takeSurface(SIZE size);

    HDC target_;
    RECT area_;
    Surface surface_;
    int savedState_;
};

}  // namespace velvox
