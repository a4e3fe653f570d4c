#include "controlkit/bitmap_picture_win32.h"

#include <utility>

namespace velvox {

BitmapPicture::BitmapPicture(OwnedBitmap bitmap, OwnedPalette palette)
    : bitmap_(std::move(bitmap)), palette_(std::move(palette)) {
    BITMAP info{};
    if (GetObjectW(bitmap_.get(), sizeof info, &info)) size_ = {info.bmWidth, info.bmHeight};
}

}  // namespace velvox
