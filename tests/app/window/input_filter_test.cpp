#include "app/window/input_filter.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

using Kind = InputEvent::Kind;
using Target = InputEvent::Target;

constexpr unsigned left = 1;
constexpr unsigned right = 2;
constexpr unsigned enter = 13;
constexpr unsigned escape = 27;
constexpr unsigned space = 32;
constexpr unsigned f4 = 115;

InputEvent input(Kind kind, unsigned code = 0, Target target = Target::Control) {
    return {.kind = kind, .target = target, .code = code, .at = {}};
}
InputEvent withAlt(Kind kind, unsigned code) {
    return {.kind = kind, .code = code, .alt = true, .at = {}};
}
InputEvent repeated(unsigned key) {
    return {.kind = Kind::KeyDown, .code = key, .repeat = true, .at = {}};
}
constexpr int download = 0;
constexpr int closeButton = 0;

InputEvent pressAt(Point at, std::uint32_t timeMs, const int& window = closeButton,
                   unsigned button = left) {
    return {.kind = Kind::Press, .code = button, .window = &window, .at = at, .timeMs = timeMs};
}

TEST(InputFilterTest, ARunLetsThroughWhatClosesMovesOrMinimises) {
    const struct {
        const char* name;
        InputEvent event;
        bool passes;
    } cases[] = {
        {"key", input(Kind::KeyDown, enter), false},
        {"key released", input(Kind::KeyUp, enter), false},
        {"character", input(Kind::Character, space), false},
        {"Alt+F4", withAlt(Kind::KeyDown, f4), true},
        {"F4", input(Kind::KeyDown, f4), false},
        {"Alt+Space", withAlt(Kind::KeyDown, space), true},
        {"Alt+Space's character", withAlt(Kind::Character, space), true},
        {"access key", withAlt(Kind::Character, 'd'), false},
        {"Alt+s, the character of F4's number", withAlt(Kind::Character, f4), false},
        {"Space on Quit", input(Kind::KeyDown, space, Target::QuitButton), true},
        {"its release", input(Kind::KeyUp, space, Target::QuitButton), true},
        {"its character", input(Kind::Character, space, Target::QuitButton), true},
        {"Enter on Quit", input(Kind::KeyDown, enter, Target::QuitButton), true},
        {"Tab on Quit", input(Kind::KeyDown, 9, Target::QuitButton), false},
        {"click", input(Kind::Press, left), false},
        {"click on Quit", input(Kind::Press, left, Target::QuitButton), true},
        {"drag", input(Kind::Press, left, Target::Frame), true},
        {"right click on the frame", input(Kind::Press, right, Target::Frame), false},
        {"release of a press before the run", input(Kind::Release, left), false},
        {"end of a drag that began before the run", input(Kind::Release, left, Target::Frame),
         true},
        {"move", input(Kind::Move), false},
        {"move of a drag", input(Kind::Move, 0, Target::Frame), true},
        {"move over Quit", input(Kind::Move, 0, Target::QuitButton), true},
        {"wheel", input(Kind::Other), false},
        {"assistive press of Quit", input(Kind::Other, 0, Target::QuitButton), true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        InputFilter filter{InputFilter::DoubleClick{}};
        filter.setRunning(true);
        EXPECT_EQ(filter.accepts(row.event), row.passes);
        EXPECT_TRUE(InputFilter{InputFilter::DoubleClick{}}.accepts(row.event)) << "without a run";
    }
}

// After a run, the events that belong to a press during the run are dropped, and no others.
TEST(InputFilterTest, WhatBelongsToADroppedPressIsDroppedAfterTheRun) {
    InputFilter filter{InputFilter::DoubleClick{}};
    filter.setRunning(true);
    EXPECT_FALSE(filter.accepts(input(Kind::KeyDown, enter)));
    EXPECT_FALSE(filter.accepts(input(Kind::Press, left)));
    EXPECT_TRUE(filter.accepts(input(Kind::Press, left, Target::Frame)));
    EXPECT_FALSE(filter.accepts(input(Kind::Press, right)));
    filter.setRunning(false);
    EXPECT_TRUE(filter.accepts(input(Kind::Release, left))) << "of the drag";
    EXPECT_FALSE(filter.accepts(input(Kind::Release, right)));
    EXPECT_TRUE(filter.accepts(input(Kind::Release, right))) << "of another press";
    EXPECT_TRUE(filter.accepts(input(Kind::KeyDown, escape)));
    EXPECT_FALSE(filter.accepts(repeated(enter)));
    EXPECT_FALSE(filter.accepts(repeated(enter)));
    EXPECT_FALSE(filter.accepts(input(Kind::KeyUp, enter)));
    EXPECT_TRUE(filter.accepts(repeated(enter)));
    // The release of a dropped press never arrives, as when another window got it.
    filter.setRunning(true);
    EXPECT_FALSE(filter.accepts(input(Kind::KeyDown, enter)));
    filter.setRunning(false);
    EXPECT_TRUE(filter.accepts(input(Kind::KeyDown, enter)));
    EXPECT_TRUE(filter.accepts(input(Kind::KeyUp, enter)));
}

TEST(InputFilterTest, ADoubleClickEndsOnNoOtherControl) {
    constexpr Point there{100, 200};
    const struct {
        const char* name;
        InputEvent second;
        bool passes;
    } cases[] = {
        {"the second click of a double click", pressAt({102, 198}, 1500), false},
        {"on the same control", pressAt(there, 1100, download), true},
        {"too late", pressAt(there, 1501), true},
        {"too far to the right", pressAt({103, 200}, 1100), true},
        {"too far up", pressAt({100, 197}, 1100), true},
        {"another button", pressAt(there, 1100, closeButton, right), true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        InputFilter filter{InputFilter::DoubleClick{}};
        EXPECT_TRUE(filter.accepts(pressAt(there, 1000, download)));
        filter.controlsChanged();
        EXPECT_EQ(filter.accepts(row.second), row.passes);
        EXPECT_EQ(filter.accepts(input(Kind::Release, row.second.code)), row.passes);
        // A third click is always accepted: the user means the control that is visible now.
        InputEvent third = row.second;
        third.timeMs += 400;
        EXPECT_TRUE(filter.accepts(third));
    }
    InputFilter filter{InputFilter::DoubleClick{}};
    constexpr std::uint32_t beforeWrap = 0xFFFF'FFF0;
    EXPECT_TRUE(filter.accepts(pressAt(there, beforeWrap, download)));
    EXPECT_TRUE(filter.accepts(pressAt(there, beforeWrap + 10))) << "no control has changed";
    filter.controlsChanged();
    EXPECT_FALSE(filter.accepts(pressAt(there, 100, download))) << "the time has wrapped around";
    // A double click that began during a run.
    filter.setRunning(true);
    EXPECT_FALSE(filter.accepts(pressAt(there, 5000)));
    filter.setRunning(false);
    EXPECT_FALSE(filter.accepts(pressAt(there, 5400)));
    EXPECT_TRUE(filter.accepts(pressAt(there, 5800)));
}

}  // namespace
}  // namespace velvox
