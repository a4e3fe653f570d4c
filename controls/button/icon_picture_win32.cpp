#include "controls/button/icon_picture_win32.h"

#include <algorithm>
#include <utility>

#include "controls/button/is_button_face_win32.h"

namespace velvox {
namespace {

// Width of an icon's picture in pixels.
int sizeOf(HICON icon) {
    ICONINFO info{};
    if (!icon || !GetIconInfo(icon, &info)) return 0;
    const OwnedBitmap colour(info.hbmColor);
    const OwnedBitmap mask(info.hbmMask);
    BITMAP bitmap{};
    GetObjectW(mask.get(), sizeof bitmap, &bitmap);
    return bitmap.bmWidth;
}

// DrawIconEx shrinks an icon by dropping pixels. For a smooth result, the icon is drawn `factor`
// times larger over a magnified copy of the background, and each target pixel becomes the mean of
// `factor` by `factor` pixels.
void drawSmooth(HICON icon, HDC dc, int x, int y, int width, int height, int factor) {
    const ButtonFace under(width, height);
    BitBlt(under.dc(), 0, 0, width, height, dc, x, y, SRCCOPY);
    const ButtonFace large(width * factor, height * factor);
    StretchBlt(large.dc(), 0, 0, width * factor, height * factor, under.dc(), 0, 0, width, height,
               SRCCOPY);
    DrawIconEx(large.dc(), 0, 0, icon, width * factor, height * factor, 0, nullptr, DI_NORMAL);
    GdiFlush();
    const PixelView from = large.pixels();
    const int parts = factor * factor;
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            int red = 0;
            int green = 0;
            int blue = 0;
            for (int i = 0; i < parts; ++i) {
                const Rgb c = from.at(column * factor + i % factor, row * factor + i / factor);
                red += redOf(c);
                green += greenOf(c);
                blue += blueOf(c);
            }
            under.pixels().pixel(column, row, rgb(red / parts, green / parts, blue / parts));
        }
    }
    under.copyTo(dc, x, y);
}

}  // namespace

IconPicture::IconPicture(OwnedIcon icon) : icon_(std::move(icon)), ownSize_(sizeOf(icon_.get())) {}

void IconPicture::draw(HDC dc, int x, int y, int width, int height) const {
    const int least = std::max(std::min(width, height), 1);
    const int factor = ownSize_ > least ? (ownSize_ + least - 1) / least : 1;
    if (width > 0 && height > 0 && factor > 1)
        drawSmooth(icon_.get(), dc, x, y, width, height, factor);
    else
        DrawIconEx(dc, x, y, icon_.get(), width, height, 0, nullptr, DI_NORMAL);
}

}  // namespace velvox
