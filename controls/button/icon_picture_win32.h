// Pictures that can be drawn at any size.
#pragma once

#include <windows.h>

#include "base/owned_win32.h"
#include "base/picture.h"

namespace velvox {

class DrawablePicture : public Picture {
 public:
    /// Draws the picture scaled to `width` by `height` pixels.
    virtual void draw(HDC dc, int x, int y, int width, int height) const = 0;
};

/// An icon that is drawn smoothly at sizes below its own.
class IconPicture : public DrawablePicture {
 public:
    explicit IconPicture(OwnedIcon icon);

    bool hasImage() const override { return static_cast<bool>(icon_); }
    void draw(HDC dc, int x, int y, int width, int height) const override;

 private:
    OwnedIcon icon_;
    int ownSize_ = 0;
};

}  // namespace velvox
