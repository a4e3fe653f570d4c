// A picture that owns a bitmap.
#pragma once

#include <windows.h>

#include "base/owned_win32.h"
#include "base/picture.h"

namespace velvox {

class BitmapPicture : public Picture {
 public:
    BitmapPicture() = default;

    /// `palette` is the bitmap's palette; it is empty except on a palette device.
    explicit BitmapPicture(OwnedBitmap bitmap, OwnedPalette palette = {});

    bool hasImage() const override { return static_cast<bool>(bitmap_); }

    HBITMAP bitmap() const noexcept { return bitmap_.get(); }
    HPALETTE palette() const noexcept { return palette_.get(); }

    /// Size of the bitmap in pixels.
    SIZE size() const noexcept { return size_; }

 private:
    OwnedBitmap bitmap_;
    OwnedPalette palette_;
    SIZE size_{};
};

}  // namespace velvox
