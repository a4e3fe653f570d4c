// Pixels of the push button's painters where they are exact, on a memory surface.
#include "controls/is_button_paint_win32.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <sstream>
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
    explicit Painted(const ButtonLook& look, int width = w, int height = h, bool cue = false,
                     bool themed = true)
        : face(width, height) {
        themes.succeeds = themed;
        SetTextColor(face.dc(), 0x010203);
        ButtonScene scene;
        scene.themes = &themes;
        scene.colours = &colours;
        scene.surroundings = 0x00FF00;
        scene.focusCue = cue;
        drawn = paintButton(face, look, scene);
        EXPECT_EQ(GetTextColor(face.dc()), 0x010203U) << "the surface's own colour is put back";
    }
    Rgb operator()(int x, int y) { return face.at(x, y); }

    std::vector<Rgb> pixels() {
        std::vector<Rgb> all;
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x) all.push_back(face.at(x, y));
        return all;
    }

    FakeThemes themes;
    ButtonFace face;
    bool drawn = false;
};

struct Pixel {
    int x, y;
    Rgb colour;
};

void expectPixels(const ButtonLook& look, const std::vector<Pixel>& expected) {
    Painted painted(look);
    for (const auto& [x, y, colour] : expected)
        EXPECT_EQ(painted(x, y), colour)
            << x << "," << y << " of style " << look.style << ", state " << int(look.state);
}

Rgb sys(int index) {
    return NumberedColours::of(index);
}

constexpr ButtonState states[] = {ButtonState::Normal, ButtonState::Hot, ButtonState::Pressed,
                                  ButtonState::Disabled};

TEST(ButtonPaintTest, FacesOfThePlainStyles) {
    const struct {
        int style;
        bool custom;
        Rgb faces[4];  // of the four states
    } rows[] = {{0, true, {back, highlight, highlight, highlight}},
                {1, true, {back, highlight, highlight, back}},
                {2, true, {back, highlight, highlight, back}},
                {3, true, {back, average(highlight, back), highlight, back}},
                {3, false, {sys(15), average(sys(16), sys(15)), sys(16), sys(15)}},
                {0, false, {sys(15), sys(15), sys(15), sys(15)}},
                {-1, false, {sys(15), sys(15), sys(15), sys(15)}}};
    for (const auto& row : rows)
        for (int i = 0; i < 4; ++i)
            expectPixels(lookOf(row.style, states[i], row.custom), {{w / 2, h / 2, row.faces[i]}});
}

TEST(ButtonPaintTest, EdgesOfStylesZeroToTwo) {
    using enum ButtonState;
    const struct {
        int style;
        ButtonState state;
        int topLeft, bottomRight;
    } rows[] = {{0, Normal, COLOR_3DLIGHT, COLOR_3DDKSHADOW},
                {0, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT},
                {1, Normal, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW},
                {1, Hot, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW},
                {1, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT},
                {2, Hot, COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW},
                {2, Pressed, COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT}};
    const auto edge = [](int index) { return static_cast<Rgb>(GetSysColor(index)); };
    for (const auto& row : rows) {
        const Rgb above = edge(row.topLeft);
        const Rgb below = edge(row.bottomRight);
        expectPixels(lookOf(row.style, row.state), {{0, 5, above}, {5, 0, above}});
        expectPixels(lookOf(row.style, row.state), {{w - 1, 5, below}, {5, h - 1, below}});
    }
    expectPixels(lookOf(0, Normal),
                 {{1, 5, edge(COLOR_BTNHIGHLIGHT)}, {w - 2, 5, edge(COLOR_BTNSHADOW)}});
    expectPixels(lookOf(1, Normal), {{1, 5, back}});  // one pixel wide
    // Frames from corner to corner.
    for (const ButtonState state : {Normal, Disabled})
        for (const auto& [x, y] : {std::pair{0, 0}, {w - 1, 0}, {0, h - 1}, {w - 1, h - 1}, {7, 0}})
            expectPixels(lookOf(2, state), {{x, y, sys(15)}, {1, 1, back}});
    Painted disabled(lookOf(1, Disabled));
    EXPECT_EQ(disabled(w - 1, h - 1), disabled(0, 0));
    EXPECT_NE(disabled(0, 0), back);
    EXPECT_EQ(disabled(1, 1), back);
}

// Places and shifts of the face's colour; a negative place counts from the far end.
void expectPolished(ButtonState state, const char* triples) {
    std::istringstream numbers(triples);
    for (int x = 0, y = 0, by = 0; numbers >> x >> y >> by;)
        expectPixels(lookOf(5, state), {{x < 0 ? w + x : x, y < 0 ? h + y : y, shift(back, by)}});
}

TEST(ButtonPaintTest, PolishedShadesAndFinishingPixels) {
    using enum ButtonState;
    // Without the three lower lines the gradient would end at -15.
    expectPolished(Normal, "30 1 21   30 -4 -16   30 -3 -24   30 -2 -37   -3 2 -5   -2 2 4");
    // The outer lines, and twelve pixels at the corners.
    expectPolished(Normal,
                   "30 0 -128   0 15 -128   30 -1 -128   -1 15 -128   1 1 -128   1 -2 -128 "
                   "-2 1 -128   -2 -2 -128   1 0 -128   -2 0 -128   0 1 -128   0 -2 -128 "
                   "1 -1 -128   -2 -1 -128   -1 1 -128   -1 -2 -128");
    EXPECT_NE(Painted(lookOf(5, Normal))(2, 2), shift(back, -128));
    expectPolished(Pressed,
                   "30 1 -32   30 2 -22   30 -2 -24   30 3 -15   30 -3 -4   1 2 -48   2 1 -48 "
                   "1 -3 -5   2 -2 -16   -2 -3 18   -3 -2 8   -3 1 -48   -2 2 -37   30 0 -128 "
                   "1 0 -96   1 1 0   1 -2 0   -2 1 0   -2 -2 0");
    expectPolished(Disabled, "30 0 -64   0 15 -64   30 -1 -53   -1 15 -53   30 15 0");
    for (const int x : {0, 1, w - 2, w - 1})
        for (const int y : {0, 1, h - 2, h - 1}) expectPixels(lookOf(5, Disabled), {{x, y, back}});

    // Without custom colours another painter is at work.
    Painted system(lookOf(5, Normal, false));
    EXPECT_GT(redOf(system(30, 1)), redOf(system(30, h - 3)));
    EXPECT_NE(system(30, h - 4), shift(sys(15), -16));
}

TEST(ButtonPaintTest, PolishedRingShowsHoverAndFocus) {
    ButtonLook look = lookOf(5, ButtonState::Hot);
    const std::vector<Pixel> hover = {{30, 1, shift(highlight, 85)},
                                      {30, 2, shift(highlight, 69)},
                                      {30, h - 2, shift(highlight, 16)},
                                      {30, h - 3, shift(highlight, 69)}};
    expectPixels(look, hover);
    look.focused = look.focusShown = true;
    expectPixels(look, hover);
    look.state = ButtonState::Normal;
    expectPixels(
        look,
        {{30, 1, shift(sys(13), 85)}, {1, 15, shift(sys(13), 69)}, {30, 0, shift(back, -128)}});
    look.focusShown = false;
    expectPixels(look, {{30, 1, shift(back, 21)}});
}

// The underline is the one part of a caption whose pixels do not depend on the font.
bool showsInk(ButtonLook look, Rgb ink) {
    look.caption = "mmmm";
    look.font.underline = true;
    const std::vector<Rgb> pixels = Painted(look).pixels();
    return std::find(pixels.begin(), pixels.end(), ink) != pixels.end();
}

TEST(ButtonPaintTest, CaptionColoursFollowTheState) {
    constexpr Rgb inks[] = {0x112233, 0x445566, 0x445566};
    for (int style = 0; style < 12; ++style) {
        for (int i = 0; i < 3; ++i) EXPECT_TRUE(showsInk(lookOf(style, states[i]), inks[i]));
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Disabled), sys(17))) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Normal, false), sys(18))) << style;
        EXPECT_TRUE(showsInk(lookOf(style, ButtonState::Disabled, false), sys(17))) << style;
    }
}

TEST(ButtonPaintTest, IconsMoveWhilePressedAndHover) {
    using enum ButtonState;
    const int y = (h - 8) / 2;
    const auto icon = std::make_shared<Square>();
    const auto iconLook = [&](int style, ButtonState state) {
        ButtonLook look = lookOf(style, state);
        look.icon = icon;
        look.iconAlign = 1;
        look.iconSize = 8;
        return look;
    };
    const struct {
        int style;
        ButtonState state;
        ButtonPoint place;
    } rows[] = {{0, Normal, {4, y}},  {0, Hot, {4, y}},        {0, Pressed, {5, y + 1}},
                {5, Normal, {5, y}},  {7, Normal, {5, y}},     {8, Normal, {4, y}},
                {9, Normal, {7, y}},  {10, Normal, {7, y}},    {11, Normal, {4, y}},
                {4, Hot, {2, y - 2}}, {4, Pressed, {5, y + 1}}};
    for (const auto& row : rows) {
        Painted painted(iconLook(row.style, row.state));
        EXPECT_EQ(icon->last, row.place) << row.style;
    }
    // A hot flat button's icon floats over a grey shadow, which takes in the column and the row
    // just beyond the icon.
    const Rgb face = Painted(lookOf(4, Hot))(w / 2, h / 2);
    expectPixels(iconLook(4, Hot), {{2, y - 2, 0x0000FF},
                                    {10, y + 6, 0x0000FF},
                                    {11, y + 7, 0x808080},
                                    {4 + 8, y + 8, 0x808080},
                                    {4 + 9, y + 8, face}});
    const Rgb grey = Painted(iconLook(5, Disabled))(9, h / 2);
    EXPECT_EQ(redOf(grey), blueOf(grey));
    EXPECT_NE(grey, Painted(lookOf(5, Disabled))(9, h / 2));
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
                look.iconSize = size;
                look.iconAlign = align;
                const Rgb without = Painted(look)(w / 2, h / 2);
                look.icon = icon;
                Painted painted(look);
                EXPECT_TRUE(size > 0 || painted(w / 2, h / 2) == without) << size;
            }
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
    Painted refused(look, w, h, false, false);
    EXPECT_FALSE(refused.drawn);
    EXPECT_EQ(refused(5, 5), sys(15));
}

// By a ring or by the dotted rectangle, also while it is toggled; and by the keyboard's cue.
TEST(ButtonPaintTest, FocusIsSeenInEveryStyle) {
    const auto expectDifferent = [](std::vector<Rgb> a, const std::vector<Rgb>& b, int style) {
        int different = 0;
        for (std::size_t i = 0; i < a.size(); ++i) different += a[i] != b[i];
        EXPECT_GT(different, w / 2) << style;
    };
    for (int style = 0; style < 12; ++style) {
        for (const bool custom : {true, false})
            for (const ButtonState state : states) {
                ButtonLook look = lookOf(style, state, custom);
                const std::vector<Rgb> plain = Painted(look).pixels();
                expectDifferent(plain, Painted(look, w, h, true).pixels(), style);
                if (state != ButtonState::Normal && state != ButtonState::Pressed) continue;
                look.focused = look.focusShown = true;
                expectDifferent(plain, Painted(look).pixels(), style);
            }
    }
}

TEST(ButtonPaintTest, NoTwoStylesAndNoTwoStatesLookAlike) {
    using enum ButtonState;
    constexpr int drawn[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 10};
    for (const bool custom : {true, false}) {
        std::map<std::vector<Rgb>, int> normal;
        for (const int style : drawn) {
            const auto [at, isNew] =
                normal.emplace(Painted(lookOf(style, Normal, custom)).pixels(), style);
            EXPECT_TRUE(isNew) << style << " looks like " << at->second;
            std::set<std::vector<Rgb>> inStates;
            for (const ButtonState state : states)
                inStates.insert(Painted(lookOf(style, state, custom)).pixels());
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

// The outlines are known point by point; what the system makes of one of each kind.
TEST(ButtonPaintTest, RegionsCutTheCornersOfTheirStyles) {
    const struct {
        int style;
        std::vector<ButtonPoint> inside, outside;
    } rows[] = {{0, {{0, 0}, {w - 1, h - 1}}, {{w, h}}},
                {5, {{1, 0}, {0, 1}, {2, h - 1}}, {{0, 0}, {w - 1, 0}, {w - 1, h - 1}, {0, h - 1}}},
                {8, {{2, 0}, {w - 4, 0}, {3, h - 1}}, {{1, 0}, {w - 3, 0}, {2, h - 1}}},
                {10, {{h / 2, 0}, {0, h / 2}}, {{3, 1}}}};
    for (const auto& row : rows) {
        const OwnedRegion region = buttonRegion(row.style, w, h);
        for (const auto& [x, y] : row.inside)
            EXPECT_TRUE(PtInRegion(region.get(), x, y)) << row.style << ' ' << x << ',' << y;
        for (const auto& [x, y] : row.outside)
            EXPECT_FALSE(PtInRegion(region.get(), x, y)) << row.style << ' ' << x << ',' << y;
    }
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

}  // namespace
}  // namespace velvox
