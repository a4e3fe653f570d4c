// Pixels of the push button's painters where they are exact, on a memory surface.
#include "controls/button/is_button_paint_win32.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "controls/button/icon_picture_win32.h"
#include "controls/button/is_button_layout.h"
#include "tests/controls/button/is_button_fakes.h"

namespace velvox {
namespace {

using enum ButtonState;

const NumberedColours colours;
constexpr int w = 60;
constexpr int h = 30;
constexpr Rgb back = 0xE0E0E0;
constexpr Rgb highlight = 0x804020;
constexpr ButtonState states[] = {Normal, Hot, Pressed, Disabled};

// A plain square that remembers where it was drawn, and that is a pixel larger than it says.
struct Square : DrawablePicture {
    bool hasImage() const override { return true; }
    void draw(HDC dc, int x, int y, int width, int height) const override {
        const RECT area{x, y, x + width + 1, y + height + 1};
        const OwnedBrush brush(CreateSolidBrush(0x0000FF));
        FillRect(dc, &area, brush.get());
        last = {x, y};
    }
    mutable ButtonPoint last{-1, -1};
};

ButtonLook lookOf(int style, ButtonState state, bool custom = true) {
    ButtonLook look;
    look.style = style;
    look.state = state;
    look.customColours = custom;
    look.colours = {back, highlight, 0x112233, 0x445566};
    look.captionFlags = captionFlagsOf(0);
    return look;
}

struct Painted {
    explicit Painted(const ButtonLook& look, bool cue = false, SIZE size = {w, h})
        : face(size.cx, size.cy) {
        SetTextColor(face.dc(), 0x010203);
        ButtonScene scene;
        scene.colours = &colours;
        scene.surroundings = 0x00FF00;
        scene.focusCue = cue;
        paintButton(face, look, scene);
        EXPECT_EQ(GetTextColor(face.dc()), 0x010203U) << "the surface's own colour is put back";
    }
    Rgb operator()(int x, int y) { return face.at(x, y); }

    std::vector<Rgb> pixels() {
        std::vector<Rgb> all;
        for (int i = 0; i < w * h; ++i) all.push_back(face.at(i % w, i / w));
        return all;
    }

    ButtonFace face;
};

constexpr auto sys = NumberedColours::of;

TEST(ButtonPaintTest, EdgesAndFacesOfThePlainStyles) {
    const auto edge = [](int index) { return static_cast<Rgb>(GetSysColor(index)); };
    const Rgb lit = edge(COLOR_BTNHIGHLIGHT);
    const Rgb dim = edge(COLOR_BTNSHADOW);
    const Rgb light = edge(COLOR_3DLIGHT);
    const Rgb dark = edge(COLOR_3DDKSHADOW);
    const struct {
        int style;
        ButtonState state;
        Rgb upperLeft, inside, face, lowerRight;
    } rows[] = {{0, Normal, light, lit, back, dark},
                {0, Hot, light, lit, highlight, dark},
                {0, Pressed, dim, dark, highlight, lit},
                {0, Disabled, light, lit, highlight, dark},
                {1, Normal, lit, back, back, dim},
                {1, Hot, lit, highlight, highlight, dim},
                {1, Pressed, dim, highlight, highlight, lit},
                {1, Disabled, sys(16), back, back, sys(16)},
                {2, Normal, sys(15), back, back, sys(15)},
                {2, Hot, lit, highlight, highlight, dim},
                {2, Pressed, dim, highlight, highlight, lit},
                {2, Disabled, sys(15), back, back, sys(15)},
                {3, Normal, sys(16), sys(5), back, sys(16)},
                {3, Hot, sys(16), sys(5), average(highlight, back), sys(16)},
                {3, Pressed, sys(16), highlight, highlight, sys(16)},
                {3, Disabled, sys(16), back, back, sys(16)}};
    for (const auto& row : rows) {
        Painted painted(lookOf(row.style, row.state));
        const std::vector<Rgb> seen{painted(0, 5),         painted(5, 0),     painted(1, 5),
                                    painted(w / 2, h / 2), painted(w - 1, 5), painted(5, h - 1)};
        EXPECT_EQ(seen, (std::vector{row.upperLeft, row.upperLeft, row.inside, row.face,
                                     row.lowerRight, row.lowerRight}))
            << row.style << ' ' << int(row.state);
    }
    for (const int style : {-1, 0})
        for (const ButtonState state : states)
            EXPECT_EQ(Painted(lookOf(style, state, false))(w / 2, h / 2), sys(15));
    EXPECT_EQ(Painted(lookOf(3, Hot, false))(w / 2, h / 2), average(sys(16), sys(15)));
}

// Places and shifts of a colour; a negative place counts from the far end.
void expectShifted(const ButtonLook& look, Rgb colour, const char* triples) {
    Painted painted(look);
    std::istringstream numbers(triples);
    for (int x = 0, y = 0, by = 0; numbers >> x >> y >> by;)
        EXPECT_EQ(painted(x < 0 ? w + x : x, y < 0 ? h + y : y), shift(colour, by))
            << x << ' ' << y << " in state " << int(look.state);
}

TEST(ButtonPaintTest, PolishedShadesFinishingPixelsAndRing) {
    // Without the three lower lines the gradient would end at -15.
    expectShifted(lookOf(5, Normal), back,
                  "30 1 21   30 -4 -16   30 -3 -24   30 -2 -37   -3 2 -5   -2 2 4 "
                  // The outer lines, and twelve pixels at the corners.
                  "30 0 -128   0 15 -128   30 -1 -128   -1 15 -128   1 1 -128   1 -2 -128 "
                  "-2 1 -128   -2 -2 -128   1 0 -128   -2 0 -128   0 1 -128   0 -2 -128 "
                  "1 -1 -128   -2 -1 -128   -1 1 -128   -1 -2 -128");
    expectShifted(lookOf(5, Pressed), back,
                  "30 1 -32   30 2 -22   30 -2 -24   30 3 -15   30 -3 -4   1 2 -48   2 1 -48 "
                  "1 -3 -5   2 -2 -16   -2 -3 18   -3 -2 8   -3 1 -48   -2 2 -37   30 0 -128 "
                  "1 0 -96   1 1 0   1 -2 0   -2 1 0   -2 -2 0");
    expectShifted(lookOf(5, Disabled), back,
                  "30 0 -64   0 15 -64   30 -1 -53   -1 15 -53   30 15 0   0 0 0   1 0 0   0 1 0 "
                  "1 1 0   -1 0 0   -2 0 0   -1 1 0   -2 1 0   0 -1 0   1 -1 0   0 -2 0   1 -2 0 "
                  "-1 -1 0   -2 -1 0   -1 -2 0   -2 -2 0");

    const char* const ring = "30 1 85   30 2 69   30 -2 16   30 -3 69   1 15 69";
    ButtonLook look = lookOf(5, Hot);
    expectShifted(look, highlight, ring);
    look.focused = look.focusShown = true;
    expectShifted(look, highlight, ring);
    look.state = Normal;
    expectShifted(look, sys(13), ring);
    look.focusShown = false;
    expectShifted(look, back, "30 1 21   30 0 -128");
}

// The underline is the one part of a caption whose pixels do not depend on the font.
bool showsInk(ButtonLook look, Rgb ink) {
    look.caption = "mmmm";
    look.font.underline = true;
    const std::vector<Rgb> pixels = Painted(look).pixels();
    return std::find(pixels.begin(), pixels.end(), ink) != pixels.end();
}

TEST(ButtonPaintTest, CaptionColoursFollowTheState) {
    const Rgb inks[] = {0x112233, 0x445566, 0x445566, sys(17)};
    for (int style = 0; style < 12; ++style)
        for (int i = 0; i < 4; ++i) {
            EXPECT_TRUE(showsInk(lookOf(style, states[i]), inks[i])) << style;
            EXPECT_TRUE(showsInk(lookOf(style, states[i], false), sys(i == 3 ? 17 : 18))) << style;
        }
}

TEST(ButtonPaintTest, IconsMoveWhilePressedAndHover) {
    const int y = (h - 8) / 2;
    const auto icon = std::make_shared<Square>();
    const auto iconLook = [&](int style, ButtonState state) {
        ButtonLook look = lookOf(style, state);
        look.icon = icon;
        look.iconAlign = 1;
        look.iconSize = 8;
        return look;
    };
    constexpr int margins[] = {4, 4, 4, 4, 4, 5, 4, 5, 4, 7, 7, 4};
    for (int style = 0; style < 12; ++style)
        for (const ButtonState state : states) {
            Painted painted(iconLook(style, state));
            const int by = state == Pressed ? 1 : state == Hot && style == 4 ? -2 : 0;
            EXPECT_EQ(icon->last, (ButtonPoint{margins[style] + by, y + by})) << style;
        }
    // A hot flat button's icon floats over a grey shadow, which takes in the column and the row
    // just beyond the icon.
    Painted hot(iconLook(4, Hot));
    EXPECT_EQ(hot(10, y + 6), 0x0000FF);
    EXPECT_EQ(hot(11, y + 7), 0x808080);
    EXPECT_EQ(hot(4 + 8, y + 8), 0x808080);
    EXPECT_EQ(hot(4 + 9, y + 8), hot(w / 2, h / 2));
    const Rgb grey = Painted(iconLook(5, Disabled))(9, h / 2);
    EXPECT_EQ(redOf(grey), blueOf(grey));
    EXPECT_NE(grey, Painted(lookOf(5, Disabled))(9, h / 2));
}

// The focus by a ring or by the dotted rectangle, also while toggled; and by the keyboard's cue.
TEST(ButtonPaintTest, NoTwoStylesAndNoTwoStatesLookAlikeAndFocusIsSeen) {
    for (const bool custom : {true, false}) {
        std::map<std::vector<Rgb>, int> normal;
        for (int style = 0; style < 12; ++style) {
            std::set<std::vector<Rgb>> inStates;
            for (const ButtonState state : states) {
                ButtonLook look = lookOf(style, state, custom);
                const std::vector<Rgb> plain = Painted(look).pixels();
                inStates.insert(plain);
                EXPECT_NE(Painted(look, true).pixels(), plain) << style;
                look.focused = look.focusShown = true;
                if (state == Hot || state == Disabled) continue;
                EXPECT_NE(Painted(look).pixels(), plain) << style;
            }
            // Themes and nothing at all are drawn by others.
            if (style == 6 || style == 11) continue;
            const auto [at, isNew] =
                normal.emplace(Painted(lookOf(style, Normal, custom)).pixels(), style);
            EXPECT_TRUE(isNew) << style << " looks like " << at->second;
            // Style 0 draws hot and disabled alike, and tells neither from normal without custom
            // colours; style 1 hovers by custom colours alone; style 2 disables its caption alone.
            std::size_t expected = 4;
            if (style == 0) expected = custom ? 3 : 2;
            if (style == 1) expected = custom ? 4 : 3;
            if (style == 2) expected = 3;
            EXPECT_EQ(inStates.size(), expected) << style << (custom ? " custom" : " system");
        }
    }
}

// A stored icon size is any number: nothing may overflow, nor take memory or time to match.
TEST(ButtonPaintTest, FacesAndIconsOfAnySizeLeaveNoHandlesBehind) {
    const int before = liveHandles();
    {
        const auto icon = std::make_shared<IconPicture>(
            OwnedIcon(CopyIcon(LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_INFORMATION)))));
        const int iconSizes[] = {INT_MIN, -1, 0, 1, 31, 500, 1 << 24, INT_MAX};
        int round = 0;
        for (int style = -1; style < 12; ++style)
            for (const SIZE size : {SIZE{1, 1}, {20, 20}, {2, 40}, {w, h}})
                for (const ButtonState state : states) {
                    ButtonLook look = lookOf(style, state);
                    look.caption = "Caption";
                    look.focusShown = true;
                    Painted without(look, true, size);
                    look.icon = icon;
                    look.iconAlign = round / 8 % 6;
                    look.iconSize = iconSizes[round++ % 8];
                    Painted painted(look, true, size);
                    EXPECT_TRUE(look.iconSize > 0 || painted.pixels() == without.pixels());
                }
    }
    EXPECT_EQ(liveHandles(), before);
}

}  // namespace
}  // namespace velvox
