#include "controlkit/virtual_dc_win32.h"

#include <gtest/gtest.h>

#include <algorithm>
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
        surface.Cls();
    }

    Rgb at(int x, int y) const { return surface.GetPixel(x, y); }

    /// Every pixel, row by row.
    std::vector<Rgb> pixels() const {
        std::vector<Rgb> all;
        for (int i = 0; i < surface.Width() * surface.Height(); ++i)
            all.push_back(at(i % surface.Width(), i / surface.Width()));
        return all;
    }
    auto drawnPixels() const {
        const auto all = pixels();
        return std::ranges::count_if(all, [](Rgb pixel) { return pixel != white; });
    }

    clsVirtualDC surface;
};

TEST_F(VirtualDcTest, GradientRunsFromOneColourToTheOther) {
    // The 32 pixels run from exactly the first colour to one step before the second.
    surface.DrawGradient(red, blue, 4, 5, 32, 20, 1);
    for (int step = 0; step < 32; ++step) {
        EXPECT_NEAR(redOf(at(4 + step, 24)), 255 - step * 255 / 32, 1) << step;
        EXPECT_NEAR(blueOf(at(4 + step, 5)), step * 255 / 32, 1) << step;
    }
    EXPECT_EQ(at(4, 24), red);
    EXPECT_EQ(drawnPixels(), 32 * 20);
    surface.DrawGradient(black, green, 0, 0, 40, 16, 2);
    EXPECT_EQ(at(39, 0), black) << "any other direction is downwards";
    EXPECT_NEAR(greenOf(at(20, 15)), 239, 1);
}

TEST_F(VirtualDcTest, FillsAreasWithPlainAndSystemColours) {
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    surface.FillArea({2, 3, 10, 8}, systemColour(HighlightColour));
    EXPECT_EQ(at(9, 7), static_cast<Rgb>(highlight));
    EXPECT_EQ(drawnPixels(), 8 * 5) << "right and bottom edges lie outside";
    surface.InvertArea({9, 7, 11, 8});
    EXPECT_EQ(at(9, 7), static_cast<Rgb>(highlight) ^ 0xFFFFFF);
    EXPECT_EQ(at(10, 7), black);
    surface.ForeColor(systemColour(HighlightColour));
    EXPECT_EQ(GetTextColor(surface.hDC()), highlight);
    surface.BackColor(red);
    surface.Cls();
    EXPECT_EQ(at(39, 29), red);
}

TEST_F(VirtualDcTest, ShapesTakePenAndBrush) {
    surface.PenColor(blue);
    surface.DrawRectangle(1, 1, 11, 11);
    EXPECT_EQ(at(10, 10), blue);
    EXPECT_EQ(drawnPixels(), 36) << "the brush is hollow at first";
    surface.BrushStyle(BS_SOLID);
    surface.BrushColor(green);
    surface.DrawEllipse(21, 1, 31, 11);
    EXPECT_EQ(at(25, 5), green);
    EXPECT_EQ(at(21, 1), white);
    surface.DrawRoundRectangle(0, 0, 31, 21, 12, 12);
    EXPECT_EQ(at(0, 0), white) << "the corner is cut";
    EXPECT_EQ(at(15, 20), blue);

    surface.BrushStyle(BS_HATCHED);
    surface.BrushHatch(HS_VERTICAL);
    surface.BkColor(red);
    surface.DrawRectangle(-1, -1, 32, 9);
    int lines = 0;
    for (int x = 0; x < 24; ++x) lines += at(x, 4) == green;
    EXPECT_EQ(lines, 3) << "one line in eight";
    EXPECT_EQ(at(10, 4) == green ? at(11, 4) : at(10, 4), red) << "opaque until BackMode is set";
    surface.PenWidth(3);
    surface.DrawLine(5, 25, 30, 25);
    EXPECT_EQ(at(20, 24), blue);
    EXPECT_EQ(at(20, 23), white);
    EXPECT_EQ(at(2, 25), white);
}

TEST_F(VirtualDcTest, PicturesAreCopiesOfTheirOwn) {
    surface.FillArea({0, 0, 20, 30}, red);
    surface.SetPixel(30, 7, blue);
    const auto before = pixels();
    const PicturePtr copy = surface.Picture();
    surface.CreateMyDC(40, 30);
    surface.Picture(copy);
    EXPECT_EQ(pixels(), before);

    clsVirtualDC other;
    other.CreateMyDC(20, 20);
    other.DrawImageToVirtualDC(copy, 5, 6, 3, 4, 29, 5);
    surface.PaintToDC(other.hDC(), 1, 2, 4, 4, 18, 8);
    const std::tuple<int, int, Rgb> rows[] = {{6, 8, blue},  {5, 6, white}, {4, 6, black},
                                              {8, 9, black}, {2, 5, red},   {3, 5, white},
                                              {3, 6, black}};
    for (const auto& [x, y, colour] : rows)
        EXPECT_EQ(other.GetPixel(x, y), colour) << x << ' ' << y;
}

TEST_F(VirtualDcTest, TextIsAsHighAsThePointsSay) {
    surface.Font({.points = 36, .bold = true});
    TEXTMETRICW metrics{};
    ASSERT_TRUE(GetTextMetricsW(surface.hDC(), &metrics));
    EXPECT_NEAR(metrics.tmHeight, MulDiv(36, screenDpi(), 72), 1) << "the cell, not the character";
    EXPECT_GE(metrics.tmWeight, FW_BOLD);
    RECT measured{};
    EXPECT_EQ(surface.DrawText("\xC3\x84nderung", measured, DT_CALCRECT), measured.bottom);
    surface.DrawText("WM", measured, DT_LEFT);
    EXPECT_GT(drawnPixels(), 20);
}

TEST(VirtualDcLifeTest, DrawingWithoutASurfaceDoesNothing) {
    clsVirtualDC surface;
    RECT area{0, 0, 10, 10};
    surface.PenColor(red), surface.BrushStyle(BS_SOLID), surface.Font({}), surface.Cls();
    surface.DrawLine(0, 0, 5, 5), surface.DrawGradient(red, blue, 0, 0, 10, 10, 1);
    surface.InvertArea(area), surface.SetPixel(1, 1, red), surface.DrawFocusRect(area);
    surface.DrawRectangle(0, 0, 5, 5), surface.DrawText("x", area, 0);
    surface.Picture(surface.Picture());
    EXPECT_FALSE(surface.Picture()->hasImage());
    EXPECT_EQ(surface.GetPixel(1, 1), -1);
    for (const SIZE size : {SIZE{0, 5}, {5, 0}, {-3, 4}, {1 << 30, 1 << 30}}) {
        surface.CreateMyDC(10, 10);
        surface.CreateMyDC(size.cx, size.cy);
        EXPECT_EQ(surface.hDC(), nullptr) << size.cx;
        EXPECT_EQ(surface.GetPixel(0, 0), -1);
    }
    // Settings made before CreateMyDC hold for the new surface. DestroyDC leaves nothing.
    surface.CreateMyDC(10, 10);
    surface.DrawRectangle(0, 0, 10, 10);
    EXPECT_EQ(surface.GetPixel(0, 0), red);
    EXPECT_EQ(surface.GetPixel(5, 5), black);
    surface.DestroyDC();
    EXPECT_EQ(surface.hDC(), nullptr);
    EXPECT_FALSE(surface.Font());
}

TEST(VirtualDcLifeTest, ANewSizeKeepsWhatIsDrawn) {
    clsVirtualDC surface;
    surface.CreateFromPictureBox({3000, 1500, {}, green, red});
    EXPECT_EQ(surface.Width(), toPixels(3000, screenDpi()));
    EXPECT_EQ(surface.Height(), toPixels(1500, screenDpi()));
    EXPECT_EQ(GetTextColor(surface.hDC()), static_cast<COLORREF>(red));
    surface.Cls();
    const HDC before = surface.hDC();
    const int width = surface.Width();
    surface.Width(width + 10);
    surface.Height(5);
    EXPECT_EQ(surface.hDC(), before);
    EXPECT_EQ(surface.GetPixel(width - 1, 4), green);
    EXPECT_EQ(surface.GetPixel(width, 4), black);
    EXPECT_EQ(surface.GetPixel(9, 5), -1);
    EXPECT_EQ(surface.GetPixel(-1, 0), -1);
    surface.Width(0);
    EXPECT_EQ(surface.hDC(), nullptr);
}

/// The number of handles that this process can still create.
std::size_t handlesLeft() {
    std::vector<OwnedPen> taken;
    while (OwnedPen pen{CreatePen(PS_SOLID, 1, 0)}) taken.push_back(std::move(pen));
    return taken.size();
}

TEST(VirtualDcLifeTest, TenThousandLivesLeaveNoHandle) {
    const auto live = [](int round) {
        clsVirtualDC surface;
        surface.PenColor(red);
        surface.CreateMyDC(16, 16);
        surface.Font({});
        surface.BrushStyle(BS_SOLID);
        surface.Cls();
        surface.CreateMyDC(16, 16);
        surface.PenWidth(round % 3);
        ASSERT_TRUE(surface.Picture()->hasImage());
    };
    // Objects that the system creates for the first DC and then keeps are no leak. `kept` exists
    // because without any DC the system would create them again.
    clsVirtualDC kept;
    kept.CreateMyDC(8, 8);
    live(0);
    const int before = liveHandles();
    const std::size_t left = handlesLeft();
    for (int i = 0; i < 10000; ++i) {
        live(i);
        ASSERT_EQ(liveHandles(), before) << i;
    }
    EXPECT_EQ(handlesLeft(), left) << "the system's own count";
}

}  // namespace
}  // namespace velvox
