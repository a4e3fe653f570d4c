// Exact pictures of the push button, with a fake of the drawing that the system does.
#include "controls/button/is_button_paint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
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

// A painted button. The fake draws edges as frames in a different colour for each kind, and icons
// as squares that are one pixel larger than they should be.
struct Painted : ButtonDrawing {
    explicit Painted(const ButtonLook& look, bool cue = false, Size size = {w, h},
                     Rgb around = surroundings, int lineWidth = 1)
        : pixels(static_cast<std::size_t>(size.width * size.height)),
          face(pixels.data(), size.width, size.height) {
        paintButton(face, look, {colours, around, cue, lineWidth}, *this);
    }
    Rgb operator()(int x, int y) const { return face.at(x, y); }

    void edge(ButtonEdge kind) override {
        lastEdge = static_cast<int>(kind);
        face.frame(0, 0, face.width() - 1, face.height() - 1, lastEdge);
    }
    bool themedFace(FaceState) override { return false; }
    void caption(const ButtonLook&, const Rect& area, Rgb colour) override {
        captionArea = area;
        captionColour = colour;
    }
    void icon(const Picture&, Point at, int size) override {
        if (size < 64) face.fill({at.x, at.y, at.x + size + 1, at.y + size + 1}, iconRed);
        lastIcon = at;
    }

    std::vector<std::uint32_t> pixels;
    PixelView face;
    int lastEdge = 0;
    Rect captionArea;
    Rgb captionColour = -1;
    Point lastIcon{-1, -1};
};

TEST(ButtonPaintTest, FramesAndRingsGrowWithTheLines) {
    for (const int style : {3, 4, 5, 7, 8, 9, 10}) {
        SCOPED_TRACE(style);
        const ButtonLook look = focused(lookOf(style, Normal));
        const Painted plain(look, true);
        const Painted large(look, true, {2 * w, 2 * h}, surroundings, 2);
        const Painted odd(look, true, {2 * w - 1, 2 * h - 1}, surroundings, 2);
        int differences = 0;
        for (int y = 0; y < 2 * h; ++y)
            for (int x = 0; x < 2 * w; ++x) differences += large(x, y) != plain(x / 2, y / 2);
        EXPECT_EQ(differences, 0);
        EXPECT_EQ(odd(0, 0), plain(0, 0));
    }
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
                EXPECT_EQ(painted.captionArea, (Rect{4, 4, w - 4, h - 4}));
            }
}

// Triples of a place, which counts from the far end if negative, and the shift of a colour there.
TEST(ButtonPaintTest, ShadesOfThePolishedStyle) {
    const std::vector<int> ring{30, 1, 85, 30, 2, 69, 30, -2, 16, 30, -3, 69, 1, 15, 69};
    const struct {
        ButtonLook look;
        Rgb colour;
        std::vector<int> triples;
    } rows[] = {
        {lookOf(5, Normal), back, {30, 1,  21,   30, -4, -16,  30, -3, -24,  30, -2, -37,
                                   -3, 2,  -5,   -2, 2,  4,    30, 0,  -128, 0,  15, -128,
                                   30, -1, -128, -1, 15, -128, 1,  1,  -128, 1,  0,  -128}},
        {lookOf(5, Pressed), back, {30, 1,  -32, 30, 2,  -22,  30, -2, -24, 30, 3,  -15,
                                    30, -3, -4,  1,  2,  -48,  2,  1,  -48, 1,  -3, -5,
                                    2,  -2, -16, -2, -3, 18,   -3, -2, 8,   -3, 1,  -48,
                                    -2, 2,  -37, 30, 0,  -128, 1,  0,  -96, 1,  1,  0}},
        {lookOf(5, Disabled), back, {30, 0, -64, 0, 15, -64, 30, -1, -53, -1, 15, -53, 30, 15,
                                     0,  0, 0,   0, 1,  0,   0,  0,  1,   0,  1,  1,   0}},
        {lookOf(5, Hot), highlight, ring},
        {focused(lookOf(5, Normal)), sys(HighlightColour), ring},
    };
    for (const auto& [look, colour, triples] : rows)
        for (std::size_t i = 0; i < triples.size(); i += 3) {
            const int x = triples[i], y = triples[i + 1];
            EXPECT_EQ(Painted(look)(x < 0 ? w + x : x, y < 0 ? h + y : y),
                      shift(colour, triples[i + 2]))
                << x << " " << y << " in state " << static_cast<int>(look.state);
        }
}

TEST(ButtonPaintTest, FlatFacesKeepCaptionsLegible) {
    struct : SystemColours {
        Rgb colour(int index) const override {
            if (index == ButtonTextColour) return text;
            return index == HighlightColour ? highlight : rgb(51, 51, 51);
        }
        Rgb text = 0, highlight = 0;
    } scheme;
    const struct {
        Rgb text, highlight;
        double minContrast;
    } rows[] = {{rgb(255, 255, 255), rgb(0, 90, 158), textContrast},
                {rgb(88, 110, 117), rgb(38, 139, 210), 2.5}};  // no face makes this text legible
    for (const auto& row : rows) {
        scheme.text = row.text;
        scheme.highlight = row.highlight;
        std::vector<Rgb> faces;
        for (const ButtonState state : {Hot, Pressed}) {
            Painted painted(lookOf(4, state, false));
            paintButton(painted.face, lookOf(4, state, false), {scheme}, painted);
            faces.push_back(painted(w / 2, h / 2));
            EXPECT_GE(contrast(faces.back(), row.text), row.minContrast);
        }
        EXPECT_NE(faces[0], faces[1]);
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
            EXPECT_EQ(painted.lastIcon, (Point{margins[style] + by, y + by})) << style;
        }
    // The icon of a hot flat button is drawn over a grey shadow, which is one column and one row
    // larger than the icon.
    const Painted hot(iconLook(4, Hot));
    EXPECT_EQ(hot(10, y + 6), iconRed);
    EXPECT_EQ(hot(11, y + 7), 0x808080);
    EXPECT_EQ(hot(4 + 8, y + 8), 0x808080);
    EXPECT_EQ(hot(4 + 9, y + 8), hot(w / 2, h / 2));
    // At a high resolution the frame is wider. The fake draws no icon of this size.
    ButtonLook large = iconLook(4, Hot);
    large.iconSize = 64;
    EXPECT_NE(Painted(large, false, {100, 100}, surroundings, 2)(50, 50), 0x808080);
    const Rgb grey = Painted(iconLook(5, Disabled))(9, h / 2);
    EXPECT_EQ(redOf(grey), blueOf(grey));
    EXPECT_NE(grey, Painted(lookOf(5, Disabled))(9, h / 2));
}

// A hash of all pixels, at a usual size and at the smallest.
std::uint32_t fingerprint(const ButtonLook& look, bool cue = false) {
    std::uint32_t sum = 0x811C9DC5;
    for (const Size size : {Size{w, h}, {20, 20}})
        for (const std::uint32_t pixel : Painted(look, cue, size).pixels)
            sum = (sum ^ pixel) * 0x01000193;
    return sum;
}

// Hashes of pictures that were approved by eye. Toggled buttons are focused by keyboard. After an
// intended change, look at the gallery's pages again and update the hashes. Styles 0 to 2 and 11
// draw some states alike. In every other style all states differ, and the focus is visible in each
// style.
TEST(ButtonPaintTest, PicturesAreTheApprovedOnes) {
    const struct {
        int style;
        bool custom;
        std::uint32_t normal, hot, pressed, disabled, focused, toggled;
    } rows[] = {
        {0, true, 0xFA5696A5, 0x4998D7A5, 0x8880D7A5, 0x4998D7A5, 0x003E5815, 0x95DA78CD},
        {0, false, 0xD309BD01, 0xD309BD01, 0x6C8BBD01, 0xD309BD01, 0xCBC3401F, 0x5D8B401F},
        {1, true, 0x5DA296A5, 0x6954D7A5, 0x1240D7A5, 0x013E1DA5, 0x24FA5815, 0xCC3A78CD},
        {1, false, 0x4167BD01, 0x4167BD01, 0xAE5BBD01, 0x16A49B61, 0xECFF401F, 0x67EB401F},
        {2, true, 0x1AAAE969, 0x6954D7A5, 0x1240D7A5, 0x1AAAE969, 0x40979215, 0xCC3A78CD},
        {2, false, 0x5197F38D, 0x4167BD01, 0xAE5BBD01, 0x5197F38D, 0xD9614A2B, 0x67EB401F},
        {3, true, 0x91AE8E8D, 0x081CF7AD, 0xA8FAA45D, 0x8EBB01E5, 0x34CC726D, 0x8F55C0D1},
        {3, false, 0x6261B9DD, 0x79124A2D, 0x46DB359D, 0x28FBAD51, 0x351249F3, 0x29928C43},
        {4, true, 0x5769DBD9, 0xD7EBE185, 0x89057141, 0x99032359, 0x6B67CEF3, 0xCE838C3B},
        {4, false, 0xFEAEE82D, 0x4EA122FD, 0x7A8D1EE1, 0x07E2B48D, 0x22BC671B, 0x5F8378B9},
        {5, true, 0x384392AA, 0x689990CD, 0xDEB7ECEC, 0xF52E6A6D, 0xDCF7D1AD, 0xD2EE2806},
        {5, false, 0xED07D89D, 0x23314B81, 0x6199415B, 0xF160C1B1, 0x0AAE0F1D, 0x46B29591},
        {7, true, 0x26786083, 0x4D1FA747, 0xAB3E8557, 0xD5997075, 0x50A62169, 0x1F0F5854},
        {7, false, 0x3AD03FB9, 0x42BCC0DB, 0xD0BE48DF, 0xDD632081, 0x145A4693, 0xFC51DAAB},
        {8, true, 0x526412E3, 0x3A6B4BD3, 0xB5CDE079, 0x0C9DFF85, 0x43363A14, 0xE3D1EC4C},
        {8, false, 0x7BB7ECED, 0xFB41F24E, 0x5234F091, 0x70A84FD9, 0x742EE238, 0xDB163C52},
        {9, true, 0xB059A907, 0x72D17C53, 0xF126A183, 0xB0218AB7, 0xA3113057, 0x42692591},
        {9, false, 0x5C35015F, 0x746746CB, 0xCDB5A3EB, 0x318251E7, 0x97FAF59F, 0xAAA12BA6},
        {10, true, 0xDE491487, 0xF2DA4B3D, 0xFFF4D8F9, 0x70071C11, 0x4C3BDC99, 0x95CF1773},
        {10, false, 0x7827B3CD, 0x0C2FB971, 0xCF0F1B43, 0x8D5DF87D, 0xDB891805, 0xD3D7E7D5},
        {11, true, 0x5197F38D, 0x5197F38D, 0x5197F38D, 0x5197F38D, 0x83E110AB, 0x720FDDFF},
        {11, false, 0x5197F38D, 0x5197F38D, 0x5197F38D, 0x5197F38D, 0xD9614A2B, 0xD9614A2B},
    };
    for (const auto& row : rows) {
        const auto look = [&](ButtonState state) { return lookOf(row.style, state, row.custom); };
        const std::uint32_t seen[] = {
            fingerprint(look(Normal)),          fingerprint(look(Hot)),
            fingerprint(look(Pressed)),         fingerprint(look(Disabled)),
            fingerprint(focused(look(Normal))), fingerprint(focused(look(Pressed)), true)};
        const std::uint32_t approved[] = {row.normal,   row.hot,     row.pressed,
                                          row.disabled, row.focused, row.toggled};
        EXPECT_TRUE(std::ranges::equal(seen, approved))
            << row.style << (row.custom ? " custom" : " system") << ' '
            << testing::PrintToString(seen);
    }
    // The corners of a large pill are no rounder than those of a pill 48 pixels high.
    EXPECT_NE(Painted(lookOf(10, Normal), false, {100, 60})(12, 4), surroundings);
}

// Runs under the sanitizers. A stored icon size may be any number: arithmetic must not overflow,
// and memory and time must not grow with the size.
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
