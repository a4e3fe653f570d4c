// The parts of a push button that the system draws (edges, text, icons), on a memory surface.
#include "controls/button/is_button_paint_win32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <tuple>
#include <vector>

#include "base/system_win32.h"
#include "controlkit/virtual_dc_win32.h"
#include "controls/button/icon_picture_win32.h"
#include "tests/controls/button/is_button_fakes.h"

namespace velvox {
namespace {

using enum ButtonState;

constexpr int w = 60;
constexpr int h = 30;

struct NoThemes : ThemeLibrary {
    bool drawPushButton(HWND, HDC, int, const RECT&) override { return false; }
};

struct Painted {
    explicit Painted(const ButtonLook& look, SIZE size = {w, h}) : face(size.cx, size.cy) {
        SetTextColor(face.dc(), 0x010203);
        const NumberedColours colours;
        NoThemes themes;
        paintButton(face, look, {colours, 0x00FF00, false}, nullptr, themes);
        EXPECT_EQ(GetTextColor(face.dc()), 0x010203U) << "the surface's own colour is put back";
    }
    Rgb operator()(int x, int y) const { return face.pixels().at(x, y); }

    std::vector<Rgb> pixels() const {
        std::vector<Rgb> all;
        for (int i = 0; i < w * h; ++i) all.push_back((*this)(i % w, i / w));
        return all;
    }

    ButtonFace face;
};

ButtonLook lookOf(int style, ButtonState state) {
    ButtonLook look;
    look.style = style;
    look.state = state;
    return look;
}

TEST(ButtonDrawingTest, EdgesAreThoseOfTheSystem) {
    const std::tuple<int, ButtonState, UINT> rows[] = {{0, Normal, EDGE_RAISED},
                                                       {0, Pressed, EDGE_SUNKEN},
                                                       {1, Hot, BDR_RAISEDINNER},
                                                       {1, Pressed, BDR_SUNKENOUTER}};
    for (const auto& [style, state, edge] : rows) {
        clsVirtualDC expected;
        expected.CreateMyDC(w, h);
        expected.FillArea({0, 0, w, h}, static_cast<OleColour>(NumberedColours::of(15)));
        expected.DrawEdge({0, 0, w, h}, edge, BF_RECT);
        const Painted painted(lookOf(style, state));
        for (int i = 0; i < w * h; ++i)
            ASSERT_EQ(painted(i % w, i / w), expected.GetPixel(i % w, i / w)) << style << ' ' << i;
    }
}

// The underline is the only part of a caption whose pixels do not depend on the font.
TEST(ButtonDrawingTest, CaptionsAreDrawnInTheirFontAndColour) {
    ButtonLook look = lookOf(3, Normal);
    look.caption = "mmmm";
    look.captionFlags = DT_CENTER | DT_VCENTER | DT_SINGLELINE;
    for (const bool underlined : {true, false}) {
        look.font.underline = underlined;
        int run = 0;
        int longestRun = 0;
        for (const Rgb pixel : Painted(look).pixels())
            longestRun = std::max(longestRun, run = pixel == NumberedColours::of(18) ? run + 1 : 0);
        EXPECT_EQ(longestRun > 12, underlined);
    }
}

// A stored icon size may be any number: arithmetic must not overflow, and memory and time must not
// grow with the size.
TEST(ButtonDrawingTest, FacesAndIconsOfAnySizeLeaveNoHandlesBehind) {
    const int before = liveHandles();
    {
        const auto icon = std::make_shared<IconPicture>(
            OwnedIcon(CopyIcon(LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_INFORMATION)))));
        for (int style = -1; style < 12; ++style)
            for (const ButtonState state : {Normal, Hot, Pressed, Disabled})
                for (const int iconSize : {INT_MIN, 0, 1, 31, 1 << 24, INT_MAX}) {
                    ButtonLook look = lookOf(style, state);
                    look.caption = "Caption";
                    look.icon = icon;
                    look.iconSize = iconSize;
                    const Painted painted(look);
                }
    }
    EXPECT_EQ(liveHandles(), before);
}

}  // namespace
}  // namespace velvox
