// What the system draws of a push button: edges, text and icons, on a memory surface.
#include "controls/button/is_button_paint_win32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <vector>

#include "base/system_win32.h"
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
        paintButton(face, look, {colours, 0x00FF00, true}, nullptr, themes);
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
    const auto edge = [](int index) { return static_cast<Rgb>(GetSysColor(index)); };
    const Rgb lit = edge(COLOR_BTNHIGHLIGHT);
    const Rgb dim = edge(COLOR_BTNSHADOW);
    const Rgb light = edge(COLOR_3DLIGHT);
    const Rgb dark = edge(COLOR_3DDKSHADOW);
    const Rgb face = NumberedColours::of(15);
    const struct {
        int style;
        ButtonState state;
        Rgb upperLeft, inside, lowerRight;
    } rows[] = {{0, Normal, light, lit, dark},
                {0, Pressed, dim, dark, lit},
                {1, Hot, lit, face, dim},
                {1, Pressed, dim, face, lit}};
    for (const auto& row : rows) {
        const Painted painted(lookOf(row.style, row.state));
        const std::vector<Rgb> seen{painted(0, 5), painted(5, 0), painted(1, 5), painted(w - 1, 5),
                                    painted(5, h - 1)};
        EXPECT_EQ(seen, (std::vector{row.upperLeft, row.upperLeft, row.inside, row.lowerRight,
                                     row.lowerRight}))
            << row.style << ' ' << int(row.state);
    }
}

// The underline is the one part of a caption whose pixels do not depend on the font.
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

// A stored icon size is any number: nothing may overflow, nor take memory or time to match.
TEST(ButtonDrawingTest, FacesAndIconsOfAnySizeLeaveNoHandlesBehind) {
    const int before = liveHandles();
    {
        const auto icon = std::make_shared<IconPicture>(
            OwnedIcon(CopyIcon(LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_INFORMATION)))));
        const int iconSizes[] = {INT_MIN, -1, 0, 1, 31, 500, 1 << 24, INT_MAX};
        int round = 0;
        for (int style = -1; style < 12; ++style)
            for (const SIZE size : {SIZE{1, 1}, {20, 20}, {2, 40}, {w, h}})
                for (const ButtonState state : {Normal, Hot, Pressed, Disabled}) {
                    ButtonLook look = lookOf(style, state);
                    look.caption = "Caption";
                    look.focusShown = true;
                    const Painted without(look, size);
                    look.icon = icon;
                    look.iconAlign = round / 8 % 6;
                    look.iconSize = iconSizes[round++ % 8];
                    const Painted painted(look, size);
                    EXPECT_TRUE(look.iconSize > 0 || painted.pixels() == without.pixels());
                }
    }
    EXPECT_EQ(liveHandles(), before);
}

}  // namespace
}  // namespace velvox
