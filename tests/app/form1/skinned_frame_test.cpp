#include <gtest/gtest.h>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {
namespace {

constexpr auto left = MouseButton::Left;

TEST(SkinnedFrameTest, TitleBarFollowsTheWidth) {
    Form1Fixture fixture;
    Form1& form = fixture.form;
    form.skinicon.Move({9, 9, 480, 450});
    form.Width(8000);
    EXPECT_EQ(form.skinicon.bounds(), (Bounds{0, 0, 480, 450}));
    EXPECT_EQ(form.skinbar.bounds(), (Bounds{480, 0, 8000 - 1020, form.skinbar.Height()}));
    EXPECT_EQ(form.topendskin.bounds(), (Bounds{8000 - 540, 0, 540, form.topendskin.Height()}));

    // In a window that is too narrow, skinbar keeps its width. topendskin is nevertheless moved to
    // skinbar's right end.
    form.Width(2000);
    form.topendskin.Left(5);
    form.Width(1019);
    EXPECT_EQ(form.skinbar.Width(), 980);
    EXPECT_EQ(form.topendskin.Left(), 480 + 980);
}

class DragTest : public ::testing::Test {
 protected:
    DragTest() { fixture.frame.rect = {100, -50, 597, 247}; }
    void press(MouseButton button = left, Point cursor = {500, 400}) {
        fixture.frame.cursor = cursor;
        form.Form_MouseDown(button, 0, 1, 2);
    }
    void moveTo(Point cursor, MouseButton button = left) {
        fixture.frame.cursor = cursor;
        form.Form_MouseMove(button, 0, 3, 4);
    }
    void release(MouseButton button = left) { form.Form_MouseUp(button, 0, 5, 6); }

    Form1Fixture fixture;
    Form1& form = fixture.form;
};

TEST_F(DragTest, MovesByTheCursorsWayFromThePress) {
    moveTo({1, 1});
    release();
    EXPECT_EQ(fixture.log.take(), "") << "nothing is dragged before a press";
    press();
    // The window has moved since the press. The drag is relative to its position at the press.
    moveTo({510, 395});
    fixture.frame.rect = {0, 0, 1, 1};
    moveTo({-1000, 400});
    moveTo({500, 400});
    release();
    moveTo({700, 700});
    EXPECT_EQ(fixture.log.take(),
              "capture\nyield\nmove 110,-55\nyield\nmove -1400,-50\nyield\nmove 100,-50\n"
              "release\n");
}

TEST_F(DragTest, OtherButtonsDoNothing) {
    const auto both = static_cast<MouseButton>(3);
    for (const MouseButton other : {MouseButton::Right, both}) {
        press(other);
        moveTo({1, 1});
    }
    EXPECT_EQ(fixture.log.take(), "");
    press();
    moveTo({1, 1}, MouseButton::Right);
    moveTo({1, 1}, MouseButton::None);
    release(MouseButton::Right);
    EXPECT_EQ(fixture.log.take(), "capture\n");
}

TEST_F(DragTest, WhatComesInsideTheYieldMovesOnceAndMayRelease) {
    press();
    fixture.desktop.onYield = [this] { moveTo({600, 600}); };
    moveTo({510, 410});
    EXPECT_EQ(fixture.log.take(), "capture\nyield\nmove 200,150\n");
    fixture.desktop.onYield = [this] { release(); };
    moveTo({510, 410});  // the guard against nested moves is free again
    moveTo({520, 420});
    EXPECT_EQ(fixture.log.take(), "yield\nrelease\nmove 110,-40\n");
}

}  // namespace
}  // namespace velvox::testing
