#include "base/buffered_paint_win32.h"

#include <gtest/gtest.h>

#include "base/system_win32.h"
#include "controlkit/virtual_dc_win32.h"

namespace velvox {
namespace {

// The surface is kept between paints: one paint must not spoil the next.
TEST(BufferedPaintTest, DrawsAfterOthersInsideOthersAndWithoutMemory) {
    clsVirtualDC target;
    target.CreateMyDC(40, 40);
    const auto paint = [&](const RECT& area, Rgb colour) {
        const BufferedPaint buffer(target.hDC(), area);
        fill(buffer.dc(), area, colour);
        SetWindowOrgEx(buffer.dc(), 7, 7, nullptr);
        IntersectClipRect(buffer.dc(), 0, 0, 1, 1);
    };
    paint({0, 0, 40, 40}, 0x112233);
    paint({5, 5, 10, 10}, 0x445566);
    EXPECT_EQ(target.GetPixel(4, 4), 0x112233);
    EXPECT_EQ(target.GetPixel(5, 5), 0x445566);
    EXPECT_EQ(target.GetPixel(10, 10), 0x112233);
    {
        const RECT outer{0, 0, 40, 40};
        const BufferedPaint buffer(target.hDC(), outer);
        fill(buffer.dc(), outer, 0x010101);
        paint({0, 0, 20, 20}, 0x020202);
    }
    EXPECT_EQ(target.GetPixel(1, 1), 0x010101) << "the outer drawing is copied last";
    paint({0, 0, 1'000'000, 1'000'000}, 0x030303);
    EXPECT_EQ(target.GetPixel(30, 30), 0x030303) << "drawn without a surface";
    paint({0, 0, 20, 20}, 0x040404);
    EXPECT_EQ(target.GetPixel(1, 1), 0x040404);
}

}  // namespace
}  // namespace velvox
