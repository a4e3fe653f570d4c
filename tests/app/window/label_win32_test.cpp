#include "app/window/label_win32.h"

#include <gtest/gtest.h>

#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

TEST(LabelWindowTest, AClickIsAFreshKeyOrAPressAndAReleaseOnTheLink) {
    const TestForm form({0, 0, 300, 200});
    const Skin skin;
    Label model("Label12");
    model.Caption("link");
    model.Move({0, 0, 1500, 300});
    int clicks = 0;
    model.Click = [&] { ++clicks; };
    const LabelWindow label(model, form.handle(), 1, ControlKind::Link, skin);
    const auto send = [&](UINT message, WPARAM wParam, LPARAM lParam) {
        SendMessageW(label.handle(), message, wParam, lParam);
        return std::exchange(clicks, 0);
    };
    constexpr LPARAM inside = MAKELPARAM(5, 5);
    constexpr LPARAM outside = MAKELPARAM(500, 5);
    constexpr LPARAM repeat = MAKELPARAM(1, KF_REPEAT);

    EXPECT_EQ(send(WM_KEYDOWN, VK_RETURN, 1), 1);
    EXPECT_EQ(send(WM_KEYDOWN, VK_RETURN, repeat), 0) << "a held key";
    EXPECT_EQ(send(WM_LBUTTONUP, 0, inside), 0) << "pressed elsewhere";
    EXPECT_EQ(send(WM_LBUTTONDOWN, MK_LBUTTON, inside), 0);
    EXPECT_EQ(send(WM_LBUTTONUP, 0, inside), 1);
    EXPECT_EQ(send(WM_LBUTTONDOWN, MK_LBUTTON, inside), 0);
    EXPECT_EQ(send(WM_LBUTTONUP, 0, outside), 0) << "released elsewhere";
    EXPECT_EQ(send(WM_LBUTTONDOWN, MK_LBUTTON, inside), 0);
    ReleaseCapture();
    EXPECT_EQ(send(WM_LBUTTONUP, 0, inside), 0) << "the capture was lost";
}

TEST(LabelWindowTest, AStripShowsItsTextAtOnceAndReturnsItToOthers) {
    const TestForm form({0, 0, 300, 200});
    const Skin skin;
    Label model("Label4");
    model.ForeColor(0xFFFFFF);  // white text on the black form
    model.Move({0, 0, 1500, 300});
    const LabelWindow label(model, form.handle(), 1, ControlKind::Strip, skin);
    UpdateWindow(label.handle());
    const auto brightPixels = [&] {
        const WindowDc dc(label.handle());
        int count = 0;
        for (int x = 0; x < 100; ++x)
            for (int y = 0; y < 20; ++y) count += GetRValue(GetPixel(dc.get(), x, y)) > 200;
        return count;
    };
    const int before = brightPixels();
    model.Caption("MMMMMM");
    EXPECT_GT(brightPixels(), before + 20);
    EXPECT_FALSE(GetUpdateRect(label.handle(), nullptr, FALSE));
    EXPECT_EQ(windowText(label.handle()), "MMMMMM");
}

}  // namespace
}  // namespace velvox
