#include "controlkit/scroll_control.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <sstream>
#include <string>

#include "base/runtime_failure.h"
#include "tests/controlkit/fake_scroll_host.h"

namespace velvox {
namespace {

using testing::FakeScrollHost;

/// A bar of 130 by 16 pixels with arrows at 0..9 and 120..129 and a thumb of 12 pixels. The thumb's
/// start ranges from 10 to 108 and is 59 for the value 50.
class ScrollControlTest : public ::testing::Test {
 protected:
    /// A handler that records its event.
    auto noting(const char* name) {
        return [this, name](auto... numbers) {
            log += name;
            ((log += " " + std::to_string(static_cast<int>(numbers))), ...);
            log += ";";
        };
    }

    ScrollControlTest() {
        host.onRepaint = [this] { drawn = picture(); };
        host.onCaptureLost = [this] { bar.captureLost(); };
        bar.resize(130, 16, 96);
        bar.Scroll = [this] { log += "Scroll " + bar.Value().text() + ";"; };
        bar.MouseHover = noting("MouseHover");
        bar.MouseLeave = noting("MouseLeave");
        bar.MouseWheel = noting("MouseWheel");
        bar.MouseDown = noting("MouseDown");
        bar.MouseUp = noting("MouseUp");
        bar.MouseDblClick = noting("MouseDblClick");
        bar.KeyDown = noting("KeyDown");
        bar.KeyUp = noting("KeyUp");
        bar.KeyPress = noting("KeyPress");
    }

    /// The visible state of the bar.
    std::string picture() const {
        const Span thumb = bar.geometry().thumb();
        std::string all = bar.Value().text();
        for (const int number :
             {thumb.start, thumb.length, int(bar.hasFocus()), int(bar.Enabled())})
            all += " " + std::to_string(number);
        for (const ScrollPart part :
             {ScrollPart::LessArrow, ScrollPart::TrackBefore, ScrollPart::Thumb,
              ScrollPart::TrackAfter, ScrollPart::MoreArrow})
            all += static_cast<char>('0' + static_cast<int>(bar.stateOf(part)));
        return all;
    }

    /// Checks the conditions that hold after every event, whatever a handler has done.
    void expectSound() const {
        const ScrollPart held = bar.held();
        EXPECT_EQ(host.captured, held != ScrollPart::None);
        EXPECT_TRUE(!host.period[0] || isArrow(held)) << "the arrows' timer";
        EXPECT_TRUE(!host.period[1] || isTrack(held)) << "the track's timer";
        EXPECT_EQ(host.enabled, bar.Enabled());
        EXPECT_TRUE(bar.Enabled() || held == ScrollPart::None) << "a disabled bar in use";
        EXPECT_TRUE(!bar.UnRefreshControl() || drawn == picture()) << drawn << ": " << picture();
        const FixedPoint max = std::max(bar.Min(), bar.Max());
        EXPECT_TRUE(bar.BlockValue() || (bar.Value() >= bar.Min() && bar.Value() <= max));
    }

    /// Runs actions, each a word with a number such as "down 5 tick 0", and returns the recorded
    /// events. The number of a pointer action is the position along the bar; the position across it
    /// is `across`. Other numbers are a key's code, the wheel's delta, or the timer (0 arrows, 1
    /// track).
    std::string play(const std::string& script) {
        std::istringstream words(script);
        std::string word;
        for (std::int16_t number; words >> word >> number;) {
            actions.at(word)(number);
            expectSound();
        }
        return std::exchange(log, {});
    }
    double valueAfter(const std::string& script) {
        play(script);
        return bar.Value().toDouble();
    }
    int thumbAfter(const std::string& script) {
        play(script);
        return bar.geometry().thumb().start;
    }

    std::string log, drawn;
    int across = 8;
    FakeScrollHost host;
    ScrollControl bar{Axis::Vertical, host};
    using Action = std::function<void(std::int16_t)>;
    Action mouse(void (ScrollControl::*event)(BarPoint, MouseState), MouseButton button) {
        return [=, this](int at) { (bar.*event)({at, across}, MouseState{button}); };
    }

    static constexpr MouseButton left = MouseButton::Left, right = MouseButton::Right;
    const std::map<std::string, Action> actions{
        {"across", [&](int at) { across = at; }},
        {"move",
         [&](int at) {
             bar.mouseMove({at, across}, MouseState());
         }},
        {"leave", [&](int) { bar.mouseLeave(); }},
        {"down", mouse(&ScrollControl::mouseDown, left)},
        {"up", mouse(&ScrollControl::mouseUp, left)},
        {"double", mouse(&ScrollControl::mouseDoubleClick, left)},
        {"right-down", mouse(&ScrollControl::mouseDown, right)},
        {"right-up", mouse(&ScrollControl::mouseUp, right)},
        {"tick", [&](int timer) { bar.tick(static_cast<RepeatTimer>(timer & 1)); }},
        {"wheel", [&](int delta) { bar.wheel(delta); }},
        {"key", [&](std::int16_t code) { bar.keyDown(code, 0); }},
        {"uncapture", [&](int) { host.capture(false); }},
        {"hide", [&](int) { bar.hidden(); }},
        {"focus", [&](int has) { bar.focus(has & 1); }},
        {"enable", [&](int on) { bar.Enabled(on & 3); }},
        {"value", [&](int value) { bar.Value(value); }},
        {"min", [&](int min) { bar.Min(min * 1'000'000); }},
        {"max", [&](int max) { bar.Max(max * 1'000'000); }},
        {"page", [&](int page) { bar.LargeChange(page); }},
        {"pause", [&](int pause) { bar.MouseInterval(pause); }},
        {"block", [&](int on) { bar.BlockValue(on & 1), bar.Value(bar.Value()); }},
        {"hold-back", [&](int on) { bar.UnRefreshControl(on & 1); }},
        {"new", [&](int) { bar.InitProperties(); }}};
};

TEST_F(ScrollControlTest, AClickOnAnArrowStepsBetweenItsTwoMouseEvents) {
    bar.Change = [this](const FixedPoint& old) { log += "Change " + old.text() + ";"; };
    bar.mouseDown({125, 8}, {MouseButton::Left, 3});
    bar.mouseUp({125, 8}, {MouseButton::Left, 2});
    EXPECT_EQ(play(""), "MouseDown 1 3 1;Change 50;Scroll 51;MouseUp 1 2 1;");
    EXPECT_EQ(play("double 125"), "MouseDblClick 1 0 0;Change 51;Scroll 52;");
    EXPECT_TRUE(host.captured) << "a second quick click holds the arrow as the first did";
    EXPECT_EQ(play("up 125 right-down 125 down 5 right-up 5"),
              "MouseUp 1 0 0;MouseDown 2 0 0;MouseDown 1 0 0;Change 52;Scroll 51;MouseUp 2 0 0;");
    EXPECT_EQ(bar.held(), ScrollPart::LessArrow) << "the right button's release ends nothing";
}

TEST_F(ScrollControlTest, AHeldArrowRepeatsWithTheInterval) {
    EXPECT_EQ(valueAfter("down 5"), 49);
    EXPECT_EQ(host.period[0], 250) << "longer at first, so that a click steps once";
    EXPECT_EQ(valueAfter("tick 0"), 48);
    EXPECT_EQ(host.period[0], 100);
    EXPECT_EQ(valueAfter("move 15 tick 0"), 48) << "pauses while the pointer is off the arrow";
    bar.MouseInterval(0);
    EXPECT_EQ(valueAfter("move 5 tick 0"), 48);
    EXPECT_EQ(host.period[0], 0);
    bar.MouseInterval(1000);
    EXPECT_EQ(valueAfter("up 5 down 5"), 47);
    EXPECT_EQ(host.period[0], 1000);
    EXPECT_EQ(valueAfter("up 5 tick 0"), 47) << "a tick that comes late does nothing";
    host.startTimer(RepeatTimer::Arrow, 1);
    host.startTimer(RepeatTimer::Track, 1);
    bar.InitProperties();
    EXPECT_EQ(bar.Value(), FixedPoint(50));
    EXPECT_TRUE(host.atRest()) << "a fresh instance stops both timers";
}

TEST_F(ScrollControlTest, AHeldTrackPagesUntilTheThumbIsUnderThePointer) {
    EXPECT_EQ(valueAfter("down 85 tick 0"), 60) << "not by the arrows' timer";
    EXPECT_EQ(bar.stateOf(ScrollPart::TrackAfter), PartState::Down);
    EXPECT_EQ(valueAfter("tick 1 tick 1 tick 1"), 70);
    EXPECT_EQ(bar.stateOf(ScrollPart::TrackAfter), PartState::None);
    EXPECT_EQ(valueAfter("move 115 tick 1"), 80) << "the pointer has moved on";
    EXPECT_EQ(valueAfter("move 20 tick 1"), 80) << "and never back";
    EXPECT_EQ(valueAfter("wheel 120 key 36"), 80) << "a press comes first";
    EXPECT_TRUE(bar.wheel(120)) << "not for another window";
    play("up 20");
    EXPECT_TRUE(host.atRest());
}

TEST_F(ScrollControlTest, AThumbFollowsThePointerPastBothEndsButNotTooFarAside) {
    bar.Value(50.25);
    const std::pair<const char*, double> rows[] = {
        {"down 60 move 500", 100},
        {"move -500", 0},
        {"move 70", 60},     // the pointer keeps its offset in the thumb
        {"move 60", 50.25},  // back at the start, the value has its fraction again
        {"across 144 move 70", 50.25},
        {"across 143 move 70", 60},
        {"across -129 move 70", 50.25},
        {"across -128 move 70", 60}};
    for (const auto& [script, value] : rows) EXPECT_EQ(valueAfter(script), value) << script;
    EXPECT_EQ(play("move 80"), "Scroll 70;");
}

TEST_F(ScrollControlTest, TheThumbSitsUnderThePointerWhileTheValueIsWhole) {
    bar.Max(4);
    bar.LargeChange(1);
    bar.Value(0);
    EXPECT_EQ(thumbAfter("down 13 move 18"), 15);
    EXPECT_EQ(thumbAfter("up 18"), 10) << "snaps to its value when let go";
    bar.BlockValue(true);
    EXPECT_EQ(thumbAfter("down 13 move 70"), 10) << "a blocked thumb does not pretend";
}

TEST_F(ScrollControlTest, HoverIsShownUntilThePointerHasLeft) {
    EXPECT_FALSE(bar.hasFocus());
    EXPECT_EQ(play("move 60 move 61"), "MouseHover;");
    EXPECT_EQ(bar.stateOf(ScrollPart::Thumb), PartState::Hover);
    EXPECT_EQ(bar.stateOf(ScrollPart::LessArrow), PartState::None);
    for (const char* order : {"leave 0 across -30 move 60", "across -30 move 60 leave 0"}) {
        play("across 8 move 60 down 60");
        EXPECT_EQ(play(order), "");
        EXPECT_EQ(play("up 60"), "MouseUp 1 0 0;MouseLeave;") << order;
    }
}

TEST_F(ScrollControlTest, WheelTurnsAddUpToNotches) {
    EXPECT_EQ(play("wheel 119 wheel -119"), "");
    EXPECT_EQ(play("wheel 240"), "MouseWheel 1;Scroll 47;MouseWheel 1;Scroll 44;");
    // A turn in the other direction discards the parts of a notch collected so far.
    const std::pair<const char*, double> rows[] = {
        {"wheel -80", 44}, {"wheel -80", 47}, {"wheel 100", 47}, {"wheel 20", 44}};
    for (const auto& [turn, value] : rows) EXPECT_EQ(valueAfter(turn), value) << turn;
    bar.Value(2);
    EXPECT_EQ(play("wheel 240"), "MouseWheel 1;Scroll 0;MouseWheel 1;");
    bar.EnableWheel(false);
    EXPECT_EQ(play("wheel -120"), "");
    // A handler that disables the bar or its wheel ends the whole turn.
    for (const bool wheelAlone : {true, false}) {
        bar.Enabled(true), bar.EnableWheel(true), bar.Value(50);
        EXPECT_EQ(play("wheel 119"), "");
        bar.MouseWheel = [&](auto) {
            log += "disabled;";
            wheelAlone ? bar.EnableWheel(false) : bar.Enabled(false);
        };
        EXPECT_EQ(play("wheel 241"), "disabled;");
        bar.MouseWheel = noting("MouseWheel");
    }
    bar.Enabled(true);
    bar.Scroll = [this] { bar.Enabled(false); };
    EXPECT_EQ(play("wheel 240"), "MouseWheel 1;");
}

TEST_F(ScrollControlTest, KeysMoveAfterTheirEvent) {
    bar.keyDown(ScrollKeys::down, 1);
    bar.keyPress('a');
    bar.keyUp(ScrollKeys::down, 4);
    EXPECT_EQ(play(""), "KeyDown 40 1;Scroll 51;KeyPress 97;KeyUp 40 4;");
    const std::pair<std::int16_t, double> rows[] = {
        {ScrollKeys::right, 52},     {ScrollKeys::up, 51},     {ScrollKeys::left, 50},
        {ScrollKeys::pageDown, 60},  {ScrollKeys::pageUp, 50}, {ScrollKeys::end, 100},
        {ScrollKeys::pageDown, 100}, {ScrollKeys::home, 0},    {'A', 0}};
    for (const auto& [code, value] : rows)
        EXPECT_EQ(valueAfter("key " + std::to_string(code)), value) << code;
    bar.keyDown(ScrollKeys::end, 4);
    EXPECT_EQ(play(""), "KeyDown 35 4;") << "the system's";
    bar.KeyDown = [](std::int16_t& code, int) { code = code == 'J' ? ScrollKeys::end : 0; };
    EXPECT_EQ(valueAfter("key 74 key 36"), 100) << "one is exchanged, the other dropped";
}

TEST_F(ScrollControlTest, KeepsItsInvariantsUnderRandomEventsAndHandlers) {
    std::mt19937 random;
    const auto act = [&] {
        try {
            const auto action =
                std::next(actions.begin(), static_cast<int>(random() % actions.size()));
            action->second(static_cast<std::int16_t>(static_cast<int>(random() % 200) - 20));
        } catch (const RuntimeFailure&) {  // an invalid setting
        }
    };
    bool interferes = false, hovers = false;
    const auto interfere = [&](auto&&...) {
        if (!std::exchange(interferes, false)) return;
        act();
    };
    bar.Change = interfere;
    bar.MouseWheel = [&](auto) {
        EXPECT_TRUE(bar.Enabled() && bar.EnableWheel());
        interfere();
    };
    bar.Scroll = interfere;
    bar.KeyDown = interfere;
    bar.MouseDown = bar.MouseUp = bar.MouseMove = interfere;
    bar.MouseHover = [&] {
        EXPECT_FALSE(std::exchange(hovers, true));
        interfere();
    };
    bar.MouseLeave = [&] {
        EXPECT_TRUE(std::exchange(hovers, false));
        interfere();
    };
    for (int i = 0; i < 200'000 && !HasFailure(); ++i) {
        interferes = random() % 4 == 0;
        act();
        expectSound();
        EXPECT_TRUE(bar.Enabled() || !hovers);
    }
}

TEST_F(ScrollControlTest, WithoutKeyAndMouseEventsTheBarStillWorks) {
    bar.LaunchKeyMouseEvents(false);
    const char* everything =
        "move 60 down 60 move 110 up 110 down 5 up 5 wheel -120 key 36 leave 0";
    EXPECT_EQ(play(everything), "Scroll 100;Scroll 99;Scroll 100;Scroll 0;");
    for (const std::int32_t max : {0, -50}) {
        bar.Max(max);
        EXPECT_EQ(play(everything), "") << "nothing to scroll";
    }
}

}  // namespace
}  // namespace velvox
