// Pixels of the push button's painters where they are exact, on a memory surface.
#include "controls/is_button_paint_win32.h"

#include <gtest/gtest.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <map>
#include <set>
#include <vector>

#include "controls/icon_picture_win32.h"
#include "controls/is_button_layout.h"
#include "tests/controls/is_button_fakes.h"

namespace velvox {
namespace {

const NumberedColours colours;
constexpr int w = 60;
constexpr int h = 30;
constexpr Rgb back = 0xE0E0E0;
constexpr Rgb highlight = 0x804020;

struct FakeThemes : ThemeLibrary {
    bool drawPushButton(HWND, HDC, int state, const RECT& area) override {
        lastState = state;
        lastArea = area;
        return succeeds;
    }
    bool succeeds = true;
    int lastState = 0;
    RECT lastArea{};
};

// A plain square that remembers where it was drawn.
struct Square : DrawablePicture {
    bool hasImage() const override { return true; }
    void draw(HDC dc, int x, int y, int width, int height) const override {
        const RECT area{x, y, x + width + extra, y + height + extra};
        const OwnedBrush brush(CreateSolidBrush(0x0000FF));
        FillRect(dc, &area, brush.get());
        lastX = x;
        lastY = y;
    }
    int extra = 0;  ///< pixels drawn beyond its size
    mutable int lastX = -1;
    mutable int lastY = -1;
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
    explicit Painted(const ButtonLook& look, int width = w, int height = h, bool cue = false)
        : face(width, height) {
        ButtonScene scene;
        scene.themes = &themes;
        scene.colours = &colours;
        scene.surroundings = 0x00FF00;
        scene.focusCue = cue;
        drawn = paintButton(face, look, scene);
    }
    Rgb operator()(int x, int y) { return face.at(x, y); }

    FakeThemes themes;
    ButtonFace face;
    bool drawn = false;
};

Rgb sys(int index) {
    return NumberedColours::of(index);
}
Rgb edgeColour(int index) {
    return static_cast<Rgb>(GetSysColor(index));
}

constexpr ButtonState states[] = {ButtonState::Normal, ButtonState::Hot, ButtonState::Pressed,
                                  ButtonState::Disabled};

TEST(ButtonPaintTest, FacesOfThePlainStyles) {
    const auto middle = [](int style, ButtonState state, bool custom) {
        return Painted(lookOf(style, state, custom))(w / 2, h / 2);
    };
    using enum ButtonState;
    EXPECT_EQ(middle(0, Normal, true), back);
    for (const ButtonState state : {Hot, Pressed, Disabled})
        EXPECT_EQ(middle(0, state, true), highlight);
    for (const int style : {1, 2}) {
        EXPECT_EQ(middle(style, Normal, true), back);
        EXPECT_EQ(middle(style, Disabled, true), back);
        EXPECT_EQ(middle(style, Hot, true), highlight);
        EXPECT_EQ(middle(style, Pressed, true), highlight);
    }
    EXPECT_EQ(middle(3, Hot, true), average(highlight, back));
    EXPECT_EQ(middle(3, Pressed, true), highlight);
    EXPECT_EQ(middle(3, Disabled, true), back);
    EXPECT_EQ(middle(3, Hot, false), average(sys(16), sys(15)));
    EXPECT_EQ(middle(3, Pressed, false), sys(16));
    for (const int style : {0, 1, 2, 3, 11, 12, -1})
        EXPECT_EQ(middle(style, Normal, false), sys(15)) << style;
    EXPECT_EQ(middle(11, Disabled, true), sys(15));
}

TEST(ButtonPaintTest, EdgesOfStylesZeroToTwo) {
    using enum ButtonState;
    const auto expectEdge = [](int style, ButtonState state, int topLeft, int bottomRight) {
        Painted painted(lookOf(style, state));
        EXPECT_EQ(painted(0, 5), edgeColour(topLeft)) << style;
        EXPECT_EQ(painted(5, 0), edgeColour(topLeft)) << style;
        EXPECT_EQ(painted(w - 1, 5), edgeColour(bottomRight)) << style;
        EXPECT_EQ(painted(5, h - 1), edgeColour(bottomRight)) << style;
    };
    expectEdge(0, Normal, COLOR_3DLIGHT, COLOR_3DDKSHADOW);
    expectEdge(0, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
    Painted raised(lookOf(0, Normal));
    EXPECT_EQ(raised(1, 5), edgeColour(COLOR_BTNHIGHLIGHT));
    EXPECT_EQ(raised(w - 2, 5), edgeColour(COLOR_BTNSHADOW));
    expectEdge(1, Normal, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW);
    expectEdge(1, Hot, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW);
    expectEdge(1, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
    expectEdge(2, Hot, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW);
    expectEdge(2, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT);
    // One pixel wide.
    EXPECT_EQ(Painted(lookOf(1, Normal))(1, 5), back);
    // Frames from corner to corner.
    for (const ButtonState state : {Normal, Disabled}) {
        Painted flat(lookOf(2, state));
        for (const auto& [x, y] : {std::pair{0, 0}, {w - 1, 0}, {0, h - 1}, {w - 1, h - 1}, {7, 0}})
            EXPECT_EQ(flat(x, y), sys(15));
        EXPECT_EQ(flat(1, 1), back);
    }
    Painted disabled(lookOf(1, Disabled));
    EXPECT_EQ(disabled(w - 1, h - 1), disabled(0, 0));
    EXPECT_NE(disabled(0, 0), back);
    EXPECT_EQ(disabled(1, 1), back);
}

TEST(ButtonPaintTest, PolishedNormalShadesAndTwelvePixels) {
    Painted p(lookOf(5, ButtonState::Normal));
    EXPECT_EQ(p(30, 1), shift(back, 21));
    // Without the three lower lines the gradient would end at -15.
    EXPECT_LT(redOf(p(30, h - 5)), redOf(p(30, 3)));
    EXPECT_EQ(p(30, h - 4), shift(back, -16));
    EXPECT_EQ(p(30, h - 3), shift(back, -24));
    EXPECT_EQ(p(30, h - 2), shift(back, -37));
    EXPECT_EQ(p(w - 3, 2), shift(back, -5));
    EXPECT_EQ(p(w - 2, 2), shift(back, 5 + (-32 - 5) * 1 / (h - 4)));
    const Rgb dark = shift(back, -128);
    for (const auto& [x, y] : {std::pair{30, 0}, {0, 15}, {30, h - 1}, {w - 1, 15}})
        EXPECT_EQ(p(x, y), dark);
    const ButtonPoint twelve[] = {{1, 1},     {1, h - 2},     {w - 2, 1}, {w - 2, h - 2},
                                  {1, 0},     {w - 2, 0},     {0, 1},     {0, h - 2},
                                  {1, h - 1}, {w - 2, h - 1}, {w - 1, 1}, {w - 1, h - 2}};
    for (const auto& [x, y] : twelve) EXPECT_EQ(p(x, y), dark) << x << "," << y;
    EXPECT_NE(p(2, 2), dark);
}

TEST(ButtonPaintTest, PolishedPressedShadesAndPixels) {
    Painted p(lookOf(5, ButtonState::Pressed));
    EXPECT_EQ(p(30, 1), shift(back, -32));
    EXPECT_EQ(p(30, 2), shift(back, -22));
    EXPECT_EQ(p(30, h - 2), shift(back, -24));
    EXPECT_EQ(p(30, 3), shift(back, -15));
    EXPECT_EQ(p(30, h - 3), shift(back, 5 + (-5 - 5) * (h - 6) / (h - 5)));
    EXPECT_EQ(p(1, 2), shift(back, -48));
    EXPECT_EQ(p(2, 1), shift(back, -48));
    EXPECT_EQ(p(1, h - 3), shift(back, -5));
    EXPECT_EQ(p(2, h - 2), shift(back, -16));
    EXPECT_EQ(p(w - 2, h - 3), shift(back, 18));
    EXPECT_EQ(p(w - 3, h - 2), shift(back, 8));
    EXPECT_EQ(p(w - 3, 1), shift(back, -48));
    EXPECT_EQ(p(w - 2, 2), shift(back, -37));
    EXPECT_EQ(p(30, 0), shift(back, -128));
    EXPECT_EQ(p(1, 0), shift(back, -96));
    for (const auto& [x, y] : {std::pair{1, 1}, {1, h - 2}, {w - 2, 1}, {w - 2, h - 2}})
        EXPECT_EQ(p(x, y), back);
}

TEST(ButtonPaintTest, PolishedDisabledShadesAndCorners) {
    Painted p(lookOf(5, ButtonState::Disabled));
    EXPECT_EQ(p(30, 0), shift(back, -64));
    EXPECT_EQ(p(0, 15), shift(back, -64));
    EXPECT_EQ(p(30, h - 1), shift(back, -53));
    EXPECT_EQ(p(w - 1, 15), shift(back, -53));
    EXPECT_EQ(p(30, 15), back);
    for (const int x : {0, 1, w - 2, w - 1})
        for (const int y : {0, 1, h - 2, h - 1}) EXPECT_EQ(p(x, y), back) << x << "," << y;
}

TEST(ButtonPaintTest, PolishedRingShowsHoverAndFocus) {
    Painted hot(lookOf(5, ButtonState::Hot));
    EXPECT_EQ(hot(30, 1), shift(highlight, 85));
    EXPECT_EQ(hot(30, 2), shift(highlight, 69));
    EXPECT_EQ(hot(30, h - 2), shift(highlight, 16));
    EXPECT_EQ(hot(30, h - 3), shift(highlight, 69));
    ButtonLook focused = lookOf(5, ButtonState::Normal);
    focused.focused = true;
    Painted hidden(focused);
    EXPECT_EQ(hidden(30, 1), shift(back, 21));
    focused.focusShown = true;
    Painted shown(focused);
    EXPECT_EQ(shown(30, 1), shift(sys(13), 85));
    EXPECT_EQ(shown(1, 15), shift(sys(13), 69));
    EXPECT_EQ(shown(30, 0), shift(back, -128));
    // Hot and focused: the hover's colour wins.
    focused.state = ButtonState::Hot;
    EXPECT_EQ(Painted(focused)(30, 1), shift(highlight, 85));
}

TEST(ButtonPaintTest, SystemColoursHaveAPolishedPainterOfTheirOwn) {
    Painted custom(lookOf(5, ButtonState::Normal));
    Painted system(lookOf(5, ButtonState::Normal, false));
    EXPECT_GT(redOf(system(30, 1)), redOf(system(30, h - 3)));
    EXPECT_NE(system(30, h - 4), shift(sys(15), -16));
    EXPECT_NE(custom(30, 15), system(30, 15));
}

// The underline is the one part of a caption whose pixels do not depend on the font.
bool showsInk(const ButtonLook& look, Rgb ink) {
    ButtonLook written = look;
    written.caption = "mmmm";
    written.font.underline = true;
    Painted painted(written);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            if (painted(x, y) == ink) return true;
    return false;
}

TEST(ButtonPaintTest, CaptionColoursFollowTheState) {
    for (int style = 0; style < 12; ++style) {
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Normal), 0x112233)) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Hot), 0x445566)) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Pressed), 0x445566)) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Disabled), sys(17))) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Normal, false), sys(18))) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Disabled, false), sys(17))) << style;
    }
    // The surface's own colour is put back.
    ButtonFace face(w, h);
    SetTextColor(face.dc(), 0x010203);
    ButtonScene scene;
    scene.colours = &colours;
    ButtonLook look = lookOf(0, ButtonState::Normal);
    look.caption = "text";
    paintButton(face, look, scene);
    EXPECT_EQ(GetTextColor(face.dc()), 0x010203U);
}

TEST(ButtonPaintTest, IconsMoveWhilePressedAndHover) {
    const auto icon = std::make_shared<Square>();
    const auto placed = [&](int style, ButtonState state) {
        ButtonLook look = lookOf(style, state);
        look.icon = icon;
        look.iconAlign = 1;
        look.iconSize = 8;
        Painted painted(look);
        return ButtonPoint{icon->lastX, icon->lastY};
    };
    using enum ButtonState;
    const int middle = (h - 8) / 2;
    EXPECT_EQ(placed(0, Normal), (ButtonPoint{4, middle}));
    EXPECT_EQ(placed(0, Hot), (ButtonPoint{4, middle}));
    EXPECT_EQ(placed(0, Pressed), (ButtonPoint{5, middle + 1}));
    EXPECT_EQ(placed(5, Normal), (ButtonPoint{5, middle}));
    EXPECT_EQ(placed(9, Normal), (ButtonPoint{7, middle}));
    EXPECT_EQ(placed(4, Hot), (ButtonPoint{2, middle - 2}));
    EXPECT_EQ(placed(4, Pressed), (ButtonPoint{5, middle + 1}));
    EXPECT_EQ(placed(11, Normal), (ButtonPoint{4, middle}));
}

// A stored size is any number: nothing may overflow, nor take memory or time to match.
TEST(ButtonPaintTest, IconsOfAnySizeAreCutAtTheFace) {
    const auto icon = std::make_shared<IconPicture>(
        OwnedIcon(CopyIcon(LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_INFORMATION)))));
    ASSERT_TRUE(icon->hasImage());
    for (const int size : {INT_MIN, -1, 0, 1, 31, 500, 1 << 24, INT_MAX})
        for (int align = 0; align <= 5; ++align)
            for (const ButtonState state : states) {
                ButtonLook look = lookOf(4, state);
                look.icon = icon;
                look.iconSize = size;
                look.iconAlign = align;
                Painted painted(look);
                if (size <= 0) {
                    look.icon = nullptr;
                    EXPECT_EQ(painted(w / 2, h / 2), Painted(look)(w / 2, h / 2)) << size;
                }
            }
}

TEST(ButtonPaintTest, AHotFlatButtonsIconFloatsOverItsGreyShadow) {
    ButtonLook look = lookOf(4, ButtonState::Hot);
    look.icon = std::make_shared<Square>();
    look.iconAlign = 1;
    look.iconSize = 8;
    Painted painted(look);
    const int y = (h - 8) / 2;
    EXPECT_EQ(painted(2, y - 2), 0x0000FF);
    EXPECT_EQ(painted(9, y + 5), 0x0000FF);
    EXPECT_EQ(painted(10, y + 5), 0x808080);
    EXPECT_EQ(painted(11, y + 7), 0x808080);
    EXPECT_EQ(painted(12, y + 7), painted(1, 1));
}

// The shadow takes in the column and the row just beyond the icon.
TEST(ButtonPaintTest, TheShadowIncludesBothEndsOfItsSquare) {
    ButtonLook look = lookOf(4, ButtonState::Hot);
    const auto icon = std::make_shared<Square>();
    icon->extra = 1;
    look.icon = icon;
    look.iconAlign = 1;
    look.iconSize = 8;
    Painted painted(look);
    const int y = (h - 8) / 2;
    EXPECT_EQ(painted(4 + 8, y + 8), 0x808080);
    EXPECT_EQ(painted(4 + 9, y + 8), painted(1, 1));
}

TEST(ButtonPaintTest, ADisabledIconLosesItsColour) {
    ButtonLook look = lookOf(5, ButtonState::Disabled);
    look.icon = std::make_shared<Square>();
    look.iconAlign = 0;
    Painted painted(look);
    const Rgb pixel = painted(w / 2, h / 2);
    EXPECT_EQ(redOf(pixel), blueOf(pixel));
    EXPECT_NE(pixel, back);
}

TEST(ButtonPaintTest, ThemesGetTheStateAndAreBelieved) {
    ButtonLook look = lookOf(6, ButtonState::Normal);
    look.focused = true;
    Painted focused(look);
    EXPECT_TRUE(focused.drawn);
    EXPECT_EQ(focused.themes.lastState, 5);
    EXPECT_EQ(focused.themes.lastArea.right, w);
    look.state = ButtonState::Pressed;
    EXPECT_EQ(Painted(look).themes.lastState, 3);
    ButtonFace face(w, h);
    FakeThemes refusing;
    refusing.succeeds = false;
    ButtonScene scene;
    scene.themes = &refusing;
    scene.colours = &colours;
    EXPECT_FALSE(paintButton(face, look, scene));
    EXPECT_EQ(face.at(5, 5), sys(15));
}

TEST(ButtonPaintTest, KeyboardFocusIsSeenInEveryStyle) {
    for (int style = 0; style < 12; ++style) {
        for (const ButtonState state : states) {
            Painted plain(lookOf(style, state));
            Painted cued(lookOf(style, state), w, h, true);
            int different = 0;
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x) different += plain(x, y) != cued(x, y);
            EXPECT_GT(different, w / 2) << style;
        }
    }
}

// By a ring or by the dotted rectangle, also while it is toggled.
TEST(ButtonPaintTest, AFocusThatIsToBeShownIsSeenInEveryStyle) {
    for (int style = 0; style < 12; ++style) {
        for (const bool custom : {true, false}) {
            for (const ButtonState state : {ButtonState::Normal, ButtonState::Pressed}) {
                ButtonLook look = lookOf(style, state, custom);
                Painted plain(look);
                look.focused = look.focusShown = true;
                Painted focused(look);
                int different = 0;
                for (int y = 0; y < h; ++y)
                    for (int x = 0; x < w; ++x) different += plain(x, y) != focused(x, y);
                EXPECT_GT(different, w / 2) << style << (custom ? " custom" : " system");
            }
        }
    }
}

std::vector<Rgb> pixelsOf(const ButtonLook& look) {
    Painted painted(look);
    std::vector<Rgb> pixels;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) pixels.push_back(painted(x, y));
    return pixels;
}

TEST(ButtonPaintTest, NoTwoStylesAndNoTwoStatesLookAlike) {
    using enum ButtonState;
    constexpr int drawn[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 10};
    for (const bool custom : {true, false}) {
        std::map<std::vector<Rgb>, int> normal;
        for (const int style : drawn) {
            const auto [at, isNew] = normal.emplace(pixelsOf(lookOf(style, Normal, custom)), style);
            EXPECT_TRUE(isNew) << style << " looks like " << at->second;
            std::set<std::vector<Rgb>> inStates;
            for (const ButtonState state : states)
                inStates.insert(pixelsOf(lookOf(style, state, custom)));
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

TEST(ButtonPaintTest, RegionsCutTheCornersOfTheirStyles) {
    const auto holds = [](int style, int x, int y) {
        return PtInRegion(buttonRegion(style, w, h).get(), x, y) != FALSE;
    };
    for (const int style : {0, 1, 2, 3, 4, 6, 11}) {
        EXPECT_TRUE(holds(style, 0, 0)) << style;
        EXPECT_TRUE(holds(style, w - 1, h - 1)) << style;
        EXPECT_FALSE(holds(style, w, h)) << style;
    }
    for (const int style : {5, 7}) {
        EXPECT_FALSE(holds(style, 0, 0));
        EXPECT_TRUE(holds(style, 1, 0));
        EXPECT_TRUE(holds(style, 0, 1));
        EXPECT_FALSE(holds(style, w - 1, 0));
        EXPECT_FALSE(holds(style, w - 1, h - 1));
        EXPECT_FALSE(holds(style, 0, h - 1));
        EXPECT_TRUE(holds(style, 2, h - 1));
    }
    for (const int style : {8, 9}) {
        EXPECT_FALSE(holds(style, 1, 0));
        EXPECT_TRUE(holds(style, 2, 0));
        EXPECT_FALSE(holds(style, w - 3, 0));
        EXPECT_TRUE(holds(style, w - 4, 0));
        // The bottom left corner loses one pixel more than the one at the top left.
        EXPECT_FALSE(holds(style, 2, h - 1));
        EXPECT_TRUE(holds(style, 3, h - 1));
        EXPECT_FALSE(holds(style, w - 1, h - 2));
    }
    EXPECT_FALSE(holds(10, 3, 1));
    EXPECT_TRUE(holds(10, h / 2, 0));
    EXPECT_TRUE(holds(10, 0, h / 2));
}

TEST(ButtonPaintTest, TinyAndLargeFacesLeaveNoHandlesBehind) {
    const int before = liveHandles();
    for (int style = -1; style < 12; ++style)
        for (const auto& [width, height] : {std::pair{1, 1}, {20, 20}, {2, 40}, {400, 300}})
            for (const ButtonState state : states) {
                ButtonLook look = lookOf(style, state);
                look.caption = "Caption";
                look.icon = std::make_shared<Square>();
                look.focusShown = true;
                Painted painted(look, width, height, true);
            }
    EXPECT_EQ(liveHandles(), before);
}

TEST(ButtonPaintTest, PaintingAMainWindowButtonTakesAFractionOfAMillisecond) {
    using Clock = std::chrono::steady_clock;
    constexpr int rounds = 100;
    for (int style = 0; style < 11; ++style) {
        if (style == 6) continue;
        ButtonLook look = lookOf(style, ButtonState::Normal);
        look.caption = "Download";
        Painted warm(look, 97, 28);
        const auto start = Clock::now();
        for (int i = 0; i < rounds; ++i) Painted painted(look, 97, 28);
        const auto each = std::chrono::duration<double, std::milli>(Clock::now() - start) / rounds;
        std::printf("style %2d: %.3f ms a picture\n", style, each.count());
        // Ten times what is usual, so that a busy machine does not fail it.
        EXPECT_LT(each.count(), 5.0) << style;
    }
}

}  // namespace
}  // namespace velvox
