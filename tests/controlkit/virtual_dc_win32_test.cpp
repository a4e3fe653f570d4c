#include "controlkit/virtual_dc_win32.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "base/system_win32.h"
#include "base/twips.h"
#include "controlkit/bitmap_picture_win32.h"

namespace velvox {
namespace {

constexpr Rgb black = rgb(0, 0, 0);
constexpr Rgb white = rgb(255, 255, 255);
constexpr Rgb red = rgb(255, 0, 0);
constexpr Rgb green = rgb(0, 255, 0);
constexpr Rgb blue = rgb(0, 0, 255);

/// A white surface of 40 by 30 pixels.
class VirtualDcTest : public testing::Test {
 protected:
    VirtualDcTest() {
        surface.CreateMyDC(40, 30);
        surface.BackColor(white);
        surface.Cls();
    }

    Rgb at(int x, int y) const { return surface.GetPixel(x, y); }

    /// Every pixel, row by row.
    std::vector<Rgb> pixels() const {
        std::vector<Rgb> all;
        for (int y = 0; y < surface.Height(); ++y)
            for (int x = 0; x < surface.Width(); ++x) all.push_back(at(x, y));
        return all;
    }

    int drawnPixels() const {
        int count = 0;
        for (const Rgb pixel : pixels()) count += pixel != white;
        return count;
    }

    clsVirtualDC surface;
};

TEST_F(VirtualDcTest, GradientRunsFromOneColourToTheOther) {
    // 32 pixels: a step of 8 per pixel, from the first colour exactly to one step short of the
    // second.
    surface.DrawGradient(red, blue, 4, 5, 32, 20, 1);
    for (int step = 0; step < 32; ++step) {
        const Rgb pixel = at(4 + step, 15);
        EXPECT_NEAR(redOf(pixel), 255 - step * 255 / 32, 1) << step;
        EXPECT_NEAR(blueOf(pixel), step * 255 / 32, 1) << step;
        EXPECT_EQ(pixel, at(4 + step, 5)) << "every row alike";
    }
    EXPECT_EQ(at(4, 24), red);
    for (const auto& [x, y] : {std::pair{3, 15}, {36, 15}, {4, 4}, {4, 25}})
        EXPECT_EQ(at(x, y), white) << x << ", " << y;

    for (const int direction : {0, 2, -1}) {
        surface.Cls();
        surface.DrawGradient(black, green, 0, 0, 40, 16, direction);
        EXPECT_EQ(at(39, 0), black) << direction;
        EXPECT_NEAR(greenOf(at(20, 8)), 128, 1) << direction;
        EXPECT_NEAR(greenOf(at(20, 15)), 239, 1) << direction;
        EXPECT_EQ(at(20, 16), white) << direction;
    }
}

TEST_F(VirtualDcTest, FillsAreasWithPlainAndSystemColours) {
    surface.FillArea({2, 3, 10, 8}, red);
    EXPECT_EQ(at(2, 3), red);
    EXPECT_EQ(drawnPixels(), 8 * 5) << "right and bottom edges lie outside";
    surface.FillArea({2, 3, 10, 8}, systemColour(HighlightColour));
    EXPECT_EQ(at(9, 7), static_cast<Rgb>(GetSysColor(COLOR_HIGHLIGHT)));
    surface.ForeColor(systemColour(HighlightColour));
    EXPECT_EQ(GetTextColor(surface.hDC()), GetSysColor(COLOR_HIGHLIGHT));
    surface.BackColor(systemColour(ButtonFaceColour));
    surface.Cls();
    EXPECT_EQ(at(39, 29), static_cast<Rgb>(GetSysColor(COLOR_BTNFACE)));
}

TEST_F(VirtualDcTest, InvertingOrFramingTwiceIsTheIdentity) {
    surface.DrawGradient(red, green, 0, 0, 40, 30, 1);
    const auto before = pixels();
    surface.InvertArea({5, 5, 20, 20});
    EXPECT_EQ(at(5, 5), before[5 * 40 + 5] ^ 0xFFFFFF);
    EXPECT_EQ(at(4, 5), before[5 * 40 + 4]);
    EXPECT_EQ(at(20, 19), before[19 * 40 + 20]);
    surface.InvertArea({5, 5, 20, 20});
    EXPECT_EQ(pixels(), before);
    surface.DrawFocusRect({3, 3, 30, 20});
    EXPECT_NE(pixels(), before);
    surface.DrawFocusRect({3, 3, 30, 20});
    EXPECT_EQ(pixels(), before);
}

TEST_F(VirtualDcTest, ShapesTakePenAndBrush) {
    surface.PenColor(blue);
    surface.DrawRectangle(1, 1, 11, 11);
    EXPECT_EQ(at(10, 10), blue);
    EXPECT_EQ(drawnPixels(), 36) << "the brush is hollow at first";
    surface.BrushStyle(BS_SOLID);
    surface.BrushColor(green);
    surface.DrawEllipse(1, 1, 11, 11);
    EXPECT_EQ(at(5, 5), green);
    surface.PenStyle(PS_NULL);
    surface.Cls();
    surface.DrawRoundRectangle(0, 0, 31, 21, 12, 12);
    EXPECT_EQ(at(0, 0), white) << "the corner is cut";
    EXPECT_EQ(at(15, 0), green);

    surface.Cls();
    surface.BrushStyle(BS_HATCHED);
    surface.BrushHatch(HS_VERTICAL);
    surface.BkColor(red);
    surface.DrawRectangle(0, 0, 33, 9);
    int lines = 0;
    for (int x = 0; x < 32; ++x) lines += at(x, 4) == green;
    EXPECT_EQ(lines, 4) << "one line in eight";
    EXPECT_EQ(at(0, 4) == green ? at(1, 4) : at(0, 4), red) << "opaque until BackMode is set";

    surface.Cls();
    surface.PenStyle(PS_SOLID);
    surface.PenWidth(3);
    surface.PenColor(red);
    surface.DrawLine(5, 15, 30, 15);
    for (const int y : {12, 14, 16, 18}) EXPECT_EQ(at(20, y), y % 6 ? red : white) << y;
}

TEST_F(VirtualDcTest, EdgesAreLightAboveAndDarkBelow) {
    surface.BackColor(systemColour(ButtonFaceColour));
    surface.Cls();
    surface.DrawEdge({2, 2, 22, 22}, EDGE_RAISED, BF_RECT);
    const auto light = [&](int x, int y) {
        const Rgb pixel = at(x, y);
        return redOf(pixel) + greenOf(pixel) + blueOf(pixel);
    };
    EXPECT_GT(light(3, 10), light(20, 10));
    EXPECT_GT(light(10, 3), light(10, 20));
    EXPECT_EQ(at(10, 10), static_cast<Rgb>(GetSysColor(COLOR_BTNFACE)));
    const int raised = light(21, 10);
    surface.DrawEdge({2, 2, 22, 22}, EDGE_SUNKEN, BF_RECT);
    EXPECT_LT(light(2, 10), light(21, 10));
    EXPECT_GT(light(21, 10), raised);
}

TEST_F(VirtualDcTest, PicturesAreCopiesOfTheirOwn) {
    surface.FillArea({0, 0, 20, 30}, red);
    surface.SetPixel(30, 7, blue);
    const auto before = pixels();
    const PicturePtr copy = surface.Picture();
    ASSERT_TRUE(copy->hasImage());
    surface.InvertArea({0, 0, 40, 30});
    clsVirtualDC other;
    other.CreateMyDC(40, 30);
    other.Picture(copy);
    surface.CreateMyDC(40, 30);
    other.PaintToDC(surface.hDC());
    EXPECT_EQ(pixels(), before);

    // Parts of a picture and of a surface.
    surface.CreateMyDC(20, 20);
    surface.DrawImageToVirtualDC(copy, 5, 6, 3, 4, 29, 5);
    EXPECT_EQ(at(6, 8), blue);
    EXPECT_EQ(at(5, 6), white);
    EXPECT_EQ(at(4, 6), black) << "outside of what was copied";
    EXPECT_EQ(at(8, 9), black);
    surface.CreateMyDC(20, 20);
    other.PaintToDC(surface.hDC(), 1, 2, 4, 4, 18, 8);
    EXPECT_EQ(at(2, 2), red);
    EXPECT_EQ(at(3, 5), white);
    EXPECT_EQ(at(5, 6), black) << "four by four pixels only";
    surface.DestroyDC();
    other.DestroyDC();
    const auto* image = dynamic_cast<const BitmapPicture*>(copy.get());
    ASSERT_NE(image, nullptr);
    EXPECT_NE(GetObjectType(image->bitmap()), 0U) << "outlives the surface";
}

TEST_F(VirtualDcTest, TextIsAsHighAsThePointsSay) {
    TEXTMETRICW metrics{};
    for (const int points : {8, 36}) {
        Font font;
        font.points = points;
        font.bold = true;
        surface.Font(font);
        ASSERT_TRUE(GetTextMetricsW(surface.hDC(), &metrics));
        EXPECT_NEAR(metrics.tmHeight, MulDiv(points, screenDpi(), 72), 1)
            << "the cell, not the character";
        EXPECT_GE(metrics.tmWeight, FW_BOLD);
    }
    RECT measured{};
    EXPECT_EQ(surface.DrawText("\xC3\x84nderung", measured, DT_CALCRECT), measured.bottom);
    EXPECT_GT(measured.right, 0);
    EXPECT_EQ(drawnPixels(), 0);
    RECT place{0, 0, 40, 30};
    surface.DrawText("WM", place, DT_LEFT);
    EXPECT_GT(drawnPixels(), 20);
}

TEST(VirtualDcLifeTest, DrawingWithoutASurfaceDoesNothing) {
    const auto drawEverything = [](clsVirtualDC& surface) {
        RECT area{0, 0, 10, 10};
        surface.PenColor(red), surface.BrushStyle(BS_SOLID), surface.Font({}), surface.Cls();
        surface.DrawLine(0, 0, 5, 5), surface.DrawGradient(red, blue, 0, 0, 10, 10, 1);
        surface.FillArea(area, red), surface.InvertArea(area), surface.SetPixel(1, 1, red);
        surface.DrawFocusRect(area), surface.DrawEllipse(0, 0, 5, 5);
        surface.DrawRectangle(0, 0, 5, 5), surface.DrawRoundRectangle(0, 0, 5, 5, 2, 2);
        surface.DrawEdge(area, EDGE_RAISED, BF_RECT), surface.DrawText("x", area, 0);
        surface.Picture(surface.Picture());
        EXPECT_FALSE(surface.Picture()->hasImage());
        EXPECT_EQ(surface.GetPixel(1, 1), -1);
    };
    clsVirtualDC surface;
    drawEverything(surface);
    clsVirtualDC target;
    target.CreateMyDC(4, 4);
    surface.PaintToDC(target.hDC(), 0, 0, 4, 4);
    EXPECT_EQ(target.GetPixel(0, 0), black);

    // What was set before holds for the surface that comes; and nothing is left after it.
    surface.CreateMyDC(10, 10);
    surface.DrawRectangle(0, 0, 10, 10);
    EXPECT_EQ(surface.GetPixel(0, 0), red);
    surface.DestroyDC();
    EXPECT_EQ(surface.hDC(), nullptr);
    EXPECT_FALSE(surface.Font());
    drawEverything(surface);
}

TEST(VirtualDcLifeTest, ANewSizeKeepsWhatIsDrawn) {
    clsVirtualDC surface;
    surface.CreateMyDC(10, 10);
    surface.FillArea({0, 0, 10, 10}, red);
    const HDC before = surface.hDC();
    surface.Width(20);
    surface.Height(5);
    EXPECT_EQ(surface.hDC(), before);
    EXPECT_EQ(surface.GetPixel(9, 4), red);
    EXPECT_EQ(surface.GetPixel(10, 4), black);
    EXPECT_EQ(surface.GetPixel(9, 5), -1);

    PictureBoxFace box;
    box.width = 3000;
    box.height = 1500;
    box.backColor = green;
    box.foreColor = red;
    surface.CreateFromPictureBox(box);
    EXPECT_EQ(surface.Width(), toPixels(3000, screenDpi()));
    EXPECT_EQ(surface.Height(), toPixels(1500, screenDpi()));
    surface.Cls();
    EXPECT_EQ(surface.GetPixel(surface.Width() - 1, surface.Height() - 1), green);
    EXPECT_EQ(GetTextColor(surface.hDC()), static_cast<COLORREF>(red));
}

/// How many handles the system still gives this process.
std::size_t handlesLeft() {
    std::vector<OwnedPen> taken;
    while (OwnedPen pen{CreatePen(PS_SOLID, 1, 0)}) taken.push_back(std::move(pen));
    return taken.size();
}

TEST(VirtualDcLifeTest, TenThousandLivesLeaveNoHandle) {
    const int before = liveHandles();
    {
        // What the system keeps from its first use is no leak.
        clsVirtualDC first;
        first.CreateMyDC(16, 16);
        first.Font({});
        first.DrawGradient(red, blue, 0, 0, 16, 16, 1);
        ASSERT_TRUE(first.Picture()->hasImage());
    }
    const std::size_t left = handlesLeft();
    clsVirtualDC kept;
    kept.CreateMyDC(8, 8);
    kept.CreateMyDC(8, 8);
    const int ofOne = liveHandles() - before;
    for (int i = 0; i < 10000; ++i) {
        clsVirtualDC surface;
        surface.PenColor(red);
        surface.CreateMyDC(16, 16);
        surface.Font({});
        surface.BrushStyle(BS_SOLID);
        surface.DrawEllipse(0, 0, 16, 16);
        surface.DrawGradient(red, blue, 0, 0, 16, 16, i % 2);
        surface.CreateMyDC(16, 16);
        surface.Cls();
        ASSERT_TRUE(surface.Picture()->hasImage());
        kept.CreateMyDC(8, 8);
        kept.PenWidth(i % 3);
        ASSERT_EQ(liveHandles(), before + 2 * ofOne + 1) << i;
    }
    EXPECT_EQ(liveHandles(), before + ofOne);
    kept.DestroyDC();
    EXPECT_EQ(liveHandles(), before);
    EXPECT_EQ(handlesLeft(), left) << "the system's own count";
}

}  // namespace
}  // namespace velvox
