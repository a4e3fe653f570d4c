// Pictures of the push button where they are exact, with a stand-in for what the system draws.
#include "controls/button/is_button_paint.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <sstream>
#include <vector>

#include "tests/controls/button/is_button_fakes.h"

namespace velvox {
namespace {

using enum ButtonState;

const NumberedColours colours;
constexpr int w = 60;
constexpr int h = 30;
constexpr Rgb back = 0xE0E0E0;
constexpr Rgb highlight = 0x804020;
constexpr Rgb iconRed = 0x0000FF;
constexpr Rgb surroundings = 0x00FF00;
constexpr ButtonState states[] = {Normal, Hot, Pressed, Disabled};
constexpr auto sys = NumberedColours::of;

struct Size {
    int w;
    int h;
};

struct SomePicture : Picture {
    bool hasImage() const override { return true; }
};

ButtonLook lookOf(int style, ButtonState state, bool custom = true) {
    ButtonLook look;
    look.style = style;
    look.state = state;
    look.customColours = custom;
    look.colours = {back, highlight, 0x112233, 0x445566};
    return look;
}

ButtonLook focused(ButtonLook look) {
    look.focused = look.focusShown = true;
    return look;
}

// A picture. Edges appear as frames in a colour of their kind, icons as squares that are a pixel
// larger than they should be.
struct Painted : ButtonDrawing {
    explicit Painted(const ButtonLook& look, bool cue = false, Size size = {w, h},
                     Rgb around = surroundings)
        : pixels(static_cast<std::size_t>(size.w * size.h)), face(pixels.data(), size.w, size.h) {
        paintButton(face, look, {colours, around, cue}, *this);
    }
    Rgb operator()(int x, int y) const { return face.at(x, y); }

    void edge(ButtonEdge kind) override {
        lastEdge = static_cast<int>(kind);
        face.frame(0, 0, face.width() - 1, face.height() - 1, lastEdge);
    }
    bool themedFace(FaceState) override { return false; }
    void caption(const ButtonLook&, const ButtonRect& area, Rgb colour) override {
        captionArea = area;
        captionColour = colour;
    }
    void icon(const Picture&, ButtonPoint at, int size) override {
        if (size < 64) face.fill({at.x, at.y, at.x + size + 1, at.y + size + 1}, iconRed);
        lastIcon = at;
    }

    std::vector<std::uint32_t> pixels;
    PixelView face;
    int lastEdge = 0;
    ButtonRect captionArea;
    Rgb captionColour = -1;
    ButtonPoint lastIcon{-1, -1};
};

TEST(ButtonPaintTest, FacesEdgesAndOutlinesOfThePlainStyles) {
    const struct {
        int style;
        FaceState state;
        Rgb face;
        int edge;  // 0 for none
        Rgb outline;
    } rows[] = {{0, FaceState::Normal, back, 5, 5},
                {0, FaceState::Hot, highlight, 5, 5},
                {0, FaceState::Pressed, highlight, 10, 10},
                {0, FaceState::Disabled, highlight, 5, 5},
                {0, FaceState::Focused, highlight, 5, 5},
                {1, FaceState::Normal, back, 4, 4},
                {1, FaceState::Hot, highlight, 4, 4},
                {1, FaceState::Pressed, highlight, 2, 2},
                {1, FaceState::Disabled, back, 0, sys(16)},
                {1, FaceState::Focused, highlight, 4, 4},
                {2, FaceState::Normal, back, 0, sys(15)},
                {2, FaceState::Hot, highlight, 4, 4},
                {2, FaceState::Pressed, highlight, 2, 2},
                {2, FaceState::Disabled, back, 0, sys(15)},
                {2, FaceState::Focused, highlight, 0, highlight},
                {3, FaceState::Normal, back, 0, sys(16)},
                {3, FaceState::Hot, average(highlight, back), 0, sys(16)},
                {3, FaceState::Pressed, highlight, 0, sys(16)},
                {3, FaceState::Disabled, back, 0, sys(16)},
                {3, FaceState::Focused, back, 0, sys(16)}};
    for (const auto& row : rows) {
        const bool isFocused = row.state == FaceState::Focused;
        const auto state = isFocused ? Normal : static_cast<ButtonState>(row.state);
        const ButtonLook look = lookOf(row.style, state);
        const Painted painted(isFocused ? focused(look) : look);
        EXPECT_EQ(painted(w / 2, h / 2), row.face) << row.style << ' ' << int(row.state);
        EXPECT_EQ(painted.lastEdge, row.edge) << row.style << ' ' << int(row.state);
        for (const auto& [x, y] : {std::pair(w / 2, 0), {0, 9}, {w - 1, 9}, {w / 2, h - 1}})
            EXPECT_EQ(painted(x, y), row.outline) << row.style << ' ' << int(row.state);
    }
    EXPECT_EQ(Painted(lookOf(3, Normal))(1, 9), sys(5));
    EXPECT_EQ(Painted(lookOf(3, Pressed))(w - 2, 9), sys(5));
    for (const int style : {-1, 0, 11})
        for (const ButtonState state : states)
            EXPECT_EQ(Painted(lookOf(style, state, false))(w / 2, h / 2), sys(15));
    EXPECT_EQ(Painted(lookOf(3, Hot, false))(w / 2, h / 2), average(sys(16), sys(15)));
}

// Places and shifts of a colour; a negative place counts from the far end.
void expectShifted(const ButtonLook& look, Rgb colour, const char* triples) {
    const Painted painted(look);
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

TEST(ButtonPaintTest, CaptionColoursFollowTheState) {
    const Rgb inks[] = {0x112233, 0x445566, 0x445566, sys(17)};
    for (int style = 0; style < 12; ++style)
        for (int i = 0; i < 4; ++i)
            for (const bool custom : {true, false}) {
                ButtonLook look = lookOf(style, states[i], custom);
                look.caption = "m";
                const Painted painted(look);
                EXPECT_EQ(painted.captionColour, custom ? inks[i] : sys(i == 3 ? 17 : 18)) << style;
                EXPECT_EQ(painted.captionArea, (ButtonRect{4, 4, w - 4, h - 4}));
            }
}

TEST(ButtonPaintTest, IconsMoveWhilePressedAndHover) {
    const int y = (h - 8) / 2;
    const auto icon = std::make_shared<SomePicture>();
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
            const Painted painted(iconLook(style, state));
            const int by = state == Pressed ? 1 : state == Hot && style == 4 ? -2 : 0;
            EXPECT_EQ(painted.lastIcon, (ButtonPoint{margins[style] + by, y + by})) << style;
        }
    // A hot flat button's icon floats over a grey shadow, which takes in the column and the row
    // just beyond the icon.
    const Painted hot(iconLook(4, Hot));
    EXPECT_EQ(hot(10, y + 6), iconRed);
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
        std::map<std::vector<std::uint32_t>, int> normal;
        for (int style = 0; style < 12; ++style) {
            std::set<std::vector<std::uint32_t>> inStates;
            for (const ButtonState state : states) {
                const ButtonLook look = lookOf(style, state, custom);
                const std::vector<std::uint32_t> plain = Painted(look).pixels;
                inStates.insert(plain);
                EXPECT_NE(Painted(look, true).pixels, plain) << style;
                if (state == Hot || state == Disabled) continue;
                EXPECT_NE(Painted(focused(look)).pixels, plain) << style;
            }
            // Themes and nothing at all are drawn by others.
            if (style == 6 || style == 11) continue;
            const auto [at, isNew] =
                normal.emplace(Painted(lookOf(style, Normal, custom)).pixels, style);
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

// A user who chose a grey highlight must not see the blue of selections.
TEST(ButtonPaintTest, HoverAndFocusKeepTheHueOfTheChosenHighlight) {
    const auto isGrey = [](std::uint32_t pixel) {
        return ((pixel >> 16) & 0xFF) == (pixel & 0xFF) && ((pixel >> 8) & 0xFF) == (pixel & 0xFF);
    };
    for (int style = 7; style <= 10; ++style)
        for (const Rgb grey : {0xE0E0E0, 0x808080, 0x202020}) {
            ButtonLook look = lookOf(style, Normal);
            look.colours.back = look.colours.highlight = grey;
            const Painted normal(look, false, {w, h}, 0x404040);
            ButtonLook hover = look;
            hover.state = Hot;
            for (const ButtonLook& chosen : {hover, focused(look)}) {
                const Painted painted(chosen, false, {w, h}, 0x404040);
                EXPECT_NE(painted.pixels, normal.pixels) << style;
                EXPECT_TRUE(std::all_of(painted.pixels.begin(), painted.pixels.end(), isGrey))
                    << style << ' ' << grey;
            }
        }
}

// Under the sanitizers. A stored icon size is any number: nothing may overflow, nor take memory or
// time to match.
TEST(ButtonPaintTest, FacesOfEverySizeFromNothingUp) {
    const int iconSizes[] = {INT_MIN, -1, 0, 1, 31, 500, 1 << 24, INT_MAX};
    unsigned round = 0;
    const auto paint = [&](Size size) {
        for (int style = -1; style < 12; ++style)
            for (const ButtonState state : states) {
                ButtonLook look = lookOf(style, state, round % 3 != 0);
                look.caption = "Caption";
                if (round % 5 == 0) look = focused(look);
                if (round % 7 == 0) look.icon = std::make_shared<SomePicture>();
                look.iconAlign = static_cast<int>(round / 8 % 6);
                look.iconSize = iconSizes[round++ % 8];
                const Painted painted(look, round % 2 == 0, size);
            }
    };
    for (int width = 0; width < 16; ++width)
        for (int height = 0; height < 16; ++height) paint({width, height});
    for (const int length : {17, 20, 31, 64, 500})
        for (const int other : {0, 1, 2, 7, 25, 100})
            paint({length, other}), paint({other, length});
}

}  // namespace
}  // namespace velvox
