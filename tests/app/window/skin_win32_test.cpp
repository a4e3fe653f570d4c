#include "app/window/skin_win32.h"

#include <gtest/gtest.h>

#include "app/form1/form1_design.h"
#include "app/form1/skin_palette.h"
#include "base/system_win32.h"
#include "controlkit/virtual_dc_win32.h"

namespace velvox {
namespace {

TEST(SkinTest, TheTitleCanBeReadInActiveAndInactiveWindows) {
    Skin skin;
    clsVirtualDC surface;
    const RECT bar = toPixels(designOf("skinbar").bounds);
    const RECT title = toPixels(designOf("Label5").bounds);
    surface.CreateMyDC(2, bar.bottom);
    for (const bool active : {true, false}) {
        skin.setActive(active);
        skin.draw(surface.hDC(), Skin::Piece::Bar, {0, 0, 2, bar.bottom});
        for (int y = title.top; y < title.bottom; ++y)
            EXPECT_GE(contrast(palette::titleText, surface.GetPixel(0, y)), textContrast)
                << active << ", row " << y;
    }
}

}  // namespace
}  // namespace velvox
