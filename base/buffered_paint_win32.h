#pragma once

#include <windows.h>

#include "base/owned_win32.h"

namespace velvox {

/// Draws in memory and copies the result to the target in one step, so that nothing flickers. The
/// memory DC has the target's coordinates: what is drawn at (x, y) is copied to (x, y). The memory
/// is reused and still contains the previous drawing, so every drawing must fill its whole area.
class BufferedPaint {
 public:
    /// `area` is the part of the target that is drawn, in pixels.
    BufferedPaint(HDC target, const RECT& area);
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;
    ~BufferedPaint();

    /// The target itself if the system has no memory for the surface.
    HDC dc() const noexcept { return surface_.dc ? surface_.dc.get() : target_; }

 private:
    struct Surface {
        SIZE size{};
        OwnedBitmap bitmap;
        OwnedMemoryDc dc;  // after `bitmap`: the DC must be deleted first
    };
    // The surface kept for the next drawing. Allocating a new one would cost more than most
    // drawings, because the system has to map each page of its memory.
    static Surface& kept() noexcept;
    static Surface takeSurface(SIZE size);

    HDC target_;
    RECT area_;
    Surface surface_;
    int savedState_;
};

}  // namespace velvox
