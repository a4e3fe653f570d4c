// Pictures that can be drawn at any size.
#pragma once

#include <windows.h>

#include <utility>

#include "base/owned_win32.h"
#include "base/picture.h"

namespace velvox {

class DrawablePicture : public Picture {
 public:
    /// Pixels; the picture is scaled to width and height.
    virtual void draw(HDC dc, int x, int y, int width, int height) const = 0;
};

class IconPicture : public DrawablePicture {
 public:
    explicit IconPicture(OwnedIcon icon) : icon_(std::move(icon)) {}

    bool hasImage() const override { return static_cast<bool>(icon_); }
    void draw(HDC dc, int x, int y, int width, int height) const override {
        DrawIconEx(dc, x, y, icon_.get(), width, height, 0, nullptr, DI_NORMAL);
    }

 private:
    OwnedIcon icon_;
};

}  // namespace velvox
