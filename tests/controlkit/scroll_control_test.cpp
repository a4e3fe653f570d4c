#include "controlkit/scroll_control.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velvox {
namespace {

using Log = std::vector<std::string>;

/// A window that only remembers, and loses the capture as a real one does: with a call back.
class FakeHost : public ScrollHost {
 public:
    void repaint() override { ++repaints; }
    void capture(bool on) override {
        const bool had = std::exchange(captured, on);
        if (had && !on && onCaptureLost) onCaptureLost();
    }
    void startTimer(RepeatTimer timer, int milliseconds) override {
        period[static_cast<int>(timer)] = milliseconds;
    }
    void stopTimer(RepeatTimer timer) override { period[static_cast<int>(timer)] = 0; }
    void requestLeave() override { ++leaveRequests; }
    void enable(bool on) override { enabled = on; }

    int arrowPeriod() const { return period[0]; }
    int trackPeriod() const { return period[1]; }
    bool timersRun() const { return period[0] || period[1]; }

    int repaints = 0;
    int leaveRequests = 0;
    bool captured = false;
    bool enabled = true;
    int period[2] = {};
    std::function<void()> onCaptureLost;
};

/// A bar of 130 by 16 pixels: arrows at 0..9 and 120..129, a thumb of 12 pixels whose start goes
/// from 10 to 108, at 59 for the value 50.
class ScrollControlTest : public testing::Test {
 protected:
    ScrollControlTest() {
        bar.resize(130, 16, 96);
        host.onCaptureLost = [this] { bar.captureLost(); };
        bar.Change = [this](const FixedPoint& old) { log.push_back("Change " + old.text()); };
        bar.Scroll = [this] { log.push_back("Scroll " + bar.Value().text()); };
        bar.MouseHover = [this] { log.emplace_back("MouseHover"); };
        bar.MouseLeave = [this] { log.emplace_back("MouseLeave"); };
        bar.MouseWheel = [this](std::int16_t sens) {
            log.push_back("MouseWheel " + std::to_string(sens));
        };
        bar.MouseDown = mouse("MouseDown");
        bar.MouseUp = mouse("MouseUp");
        bar.MouseDblClick = mouse("MouseDblClick");
        bar.KeyDown = key("KeyDown");
        bar.KeyUp = key("KeyUp");
        bar.KeyPress = [this](std::int16_t& character) {
            log.push_back("KeyPress " + std::to_string(character));
        };
    }

    ScrollControl::MouseHandler mouse(const std::string& name) {
        return [this, name](MouseButton button, std::int16_t shift, bool control) {
            log.push_back(name + " " + std::to_string(static_cast<int>(button)) + " " +
                          std::to_string(shift) + (control ? " control" : ""));
        };
    }
    ScrollControl::KeyHandler key(const std::string& name) {
        return [this, name](std::int16_t& code, std::int16_t shift) {
            log.push_back(name + " " + std::to_string(code) + " " + std::to_string(shift));
        };
    }

    void down(int along) { bar.mouseDown({along, 8}, {MouseButton::Left}); }
    void up(int along, int across = 8) { bar.mouseUp({along, across}, {MouseButton::Left}); }
    void move(int along, int across = 8) { bar.mouseMove({along, across}, {}); }

    /// What has happened since the last call.
    Log taken() { return std::exchange(log, {}); }
    double value() const { return bar.Value().toDouble(); }

    Log log;
    FakeHost host;
    ScrollControl bar{Axis::Vertical, host};
};

TEST_F(ScrollControlTest, AClickOnAnArrowStepsBetweenItsTwoMouseEvents) {
    bar.mouseDown({125, 8}, {MouseButton::Left, 3});
    bar.mouseUp({125, 8}, {MouseButton::Left, 2});
    EXPECT_EQ(taken(),
              (Log{"MouseDown 1 3 control", "Change 50", "Scroll 51", "MouseUp 1 2 control"}));
    EXPECT_FALSE(host.captured);
    EXPECT_FALSE(host.timersRun());
    bar.mouseDoubleClick({125, 8}, {MouseButton::Left});
    EXPECT_EQ(taken(), (Log{"MouseDblClick 1 0", "Change 51", "Scroll 52"}));
    EXPECT_TRUE(host.captured) << "a second quick click holds the arrow as the first did";
}

TEST_F(ScrollControlTest, OnlyTheLeftButtonActs) {
    bar.mouseDown({125, 8}, {MouseButton::Right});
    down(5);
    bar.mouseUp({5, 8}, {MouseButton::Right});
    EXPECT_EQ(bar.held(), ScrollPart::LessArrow) << "the right button's release ends nothing";
    EXPECT_EQ(taken(),
              (Log{"MouseDown 2 0", "MouseDown 1 0", "Change 50", "Scroll 49", "MouseUp 2 0"}));
}

TEST_F(ScrollControlTest, AHeldArrowRepeatsWithTheInterval) {
    down(5);
    EXPECT_EQ(host.arrowPeriod(), 250) << "longer at first, so that a click steps once";
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(host.arrowPeriod(), 100);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 47);
    move(15);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 47) << "pauses while the pointer is off the arrow";
    EXPECT_EQ(bar.touchOf(ScrollPart::LessArrow), Touch::None);
    move(5);
    bar.MouseInterval(30);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 46);
    EXPECT_EQ(host.arrowPeriod(), 30);
    bar.MouseInterval(0);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 46);
    EXPECT_FALSE(host.timersRun());
    up(5);
    bar.MouseInterval(1000);
    down(5);
    EXPECT_EQ(host.arrowPeriod(), 1000);
    up(5);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 45) << "a tick that comes late does nothing";
}

TEST_F(ScrollControlTest, AHeldTrackPagesUntilTheThumbIsUnderThePointer) {
    down(85);
    EXPECT_EQ(host.trackPeriod(), 250);
    EXPECT_EQ(host.arrowPeriod(), 0);
    EXPECT_EQ(bar.touchOf(ScrollPart::TrackAfter), Touch::Down);
    for (int i = 0; i < 10; ++i) bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 70);
    EXPECT_TRUE(bar.geometry().thumb().contains(85));
    EXPECT_EQ(bar.touchOf(ScrollPart::TrackAfter), Touch::None);
    move(115);
    bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 80) << "the pointer has moved on";
    move(20);
    bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 80) << "and never back";
}

TEST_F(ScrollControlTest, AThumbFollowsThePointerPastBothEnds) {
    down(60);
    EXPECT_TRUE(host.captured);
    EXPECT_EQ(taken(), Log{"MouseDown 1 0"});
    EXPECT_FALSE(host.timersRun());
    move(500);
    EXPECT_EQ(taken(), (Log{"Change 50", "Scroll 100"}));
    EXPECT_EQ(bar.geometry().thumb().end(), 120);
    move(-500);
    EXPECT_EQ(value(), 0);
    EXPECT_EQ(bar.geometry().thumb().start, 10);
    move(61);
    EXPECT_EQ(value(), 51) << "grabbed where it was: the offset is kept";
    move(60);
    EXPECT_EQ(value(), 50);
    up(60);
    EXPECT_FALSE(host.captured);
}

TEST_F(ScrollControlTest, ADragKeepsAFractionWhereItBegan) {
    bar.Value(50.25);
    down(60);
    move(70);
    EXPECT_EQ(bar.Value(), FixedPoint(60));
    move(60);
    EXPECT_EQ(bar.Value(), FixedPoint(50.25));
    move(70);
    move(70, 16 + 8 * 16);
    EXPECT_EQ(bar.Value(), FixedPoint(50.25)) << "strayed too far: back to the start";
    EXPECT_EQ(bar.held(), ScrollPart::Thumb);
    move(70, 15 + 8 * 16);
    EXPECT_EQ(bar.Value(), FixedPoint(60));
}

TEST_F(ScrollControlTest, TheThumbSitsUnderThePointerWhileTheValueIsWhole) {
    bar.Max(4);
    bar.LargeChange(1);
    bar.Value(0);
    const int start = bar.geometry().thumb().start;
    down(start + 3);
    move(start + 8);
    EXPECT_EQ(value(), 0);
    EXPECT_EQ(bar.geometry().thumb().start, start + 5);
    up(start + 8);
    EXPECT_EQ(bar.geometry().thumb().start, start) << "and snaps to its value when let go";
    bar.BlockValue(true);
    down(start + 3);
    move(start + 60);
    EXPECT_EQ(bar.geometry().thumb().start, start) << "a blocked thumb does not pretend";
}

TEST_F(ScrollControlTest, CaptureThatIsTakenAwayEndsThePress) {
    move(60);
    down(60);
    move(70);
    host.captured = false;
    const int requests = host.leaveRequests;
    bar.captureLost();
    EXPECT_EQ(bar.held(), ScrollPart::None);
    EXPECT_GT(host.leaveRequests, requests) << "the leave that came during the press was ignored";
    const double kept = value();
    move(100);
    EXPECT_EQ(value(), kept);

    down(5);
    move(5, -40);
    taken();
    bar.captureLost();
    EXPECT_EQ(taken(), Log{"MouseLeave"}) << "lost outside: the hover must not stick";
    EXPECT_FALSE(host.timersRun());
}

TEST_F(ScrollControlTest, HoverComesOnceAndLeavesOnceInAnyOrder) {
    move(60);
    move(61);
    EXPECT_EQ(host.leaveRequests, 2) << "asked for again on every move";
    EXPECT_EQ(bar.touchOf(ScrollPart::Thumb), Touch::Hover);
    move(20);
    EXPECT_EQ(bar.touchOf(ScrollPart::Thumb), Touch::None);
    bar.mouseLeave();
    bar.mouseLeave();
    EXPECT_EQ(taken(), (Log{"MouseHover", "MouseLeave"}));
    EXPECT_EQ(bar.touchOf(ScrollPart::TrackBefore), Touch::None);

    for (const bool leaveFirst : {true, false}) {
        move(60);
        down(60);
        if (leaveFirst) bar.mouseLeave();
        move(60, -30);
        if (!leaveFirst) bar.mouseLeave();
        taken();
        up(60, -30);
        EXPECT_EQ(taken(), (Log{"MouseUp 1 0", "MouseLeave"})) << leaveFirst;
    }

    move(60);
    taken();
    bar.hidden();
    EXPECT_EQ(taken(), Log{"MouseLeave"});
}

TEST_F(ScrollControlTest, DisablingWhileHeldLetsGoOfEverything) {
    move(5);
    down(5);
    taken();
    bar.Enabled(false);
    EXPECT_EQ(taken(), Log{"MouseLeave"});
    EXPECT_FALSE(host.captured);
    EXPECT_FALSE(host.timersRun());
    EXPECT_FALSE(host.enabled);
    bar.tick(RepeatTimer::Arrow);
    move(5);
    down(5);
    up(5);
    bar.keyDown(ScrollKeys::end, 0);
    bar.keyPress('x');
    bar.keyUp(ScrollKeys::end, 0);
    EXPECT_FALSE(bar.wheel(120));
    EXPECT_EQ(taken(), Log{});
    EXPECT_EQ(value(), 49);
    bar.Enabled(true);
    EXPECT_TRUE(host.enabled);
    EXPECT_EQ(bar.held(), ScrollPart::None);
}

TEST_F(ScrollControlTest, AHandlerMayDisableTheBarAtAnyPoint) {
    bar.MouseDown = [&](MouseButton, std::int16_t, bool) { bar.Enabled(false); };
    down(5);
    EXPECT_EQ(value(), 50);
    EXPECT_FALSE(host.captured);
    bar.Enabled(true);
    bar.MouseDown = {};
    bar.Scroll = [&] { bar.Enabled(false); };
    down(5);
    EXPECT_FALSE(host.timersRun()) << "the repeat must not start for a press that is over";
    bar.Enabled(true);
    bar.Scroll = {};
    bar.KeyDown = [&](std::int16_t&, std::int16_t) { bar.Enabled(false); };
    bar.keyDown(ScrollKeys::home, 0);
    EXPECT_EQ(value(), 49);
}

TEST_F(ScrollControlTest, WheelTurnsAddUpToNotches) {
    EXPECT_TRUE(bar.wheel(240));
    EXPECT_EQ(taken(), (Log{"MouseWheel 1", "Change 50", "Scroll 47", "MouseWheel 1", "Change 47",
                            "Scroll 44"}));
    bar.wheel(-80);
    EXPECT_EQ(value(), 44);
    bar.wheel(-80);
    EXPECT_EQ(value(), 47);
    bar.wheel(100);
    EXPECT_EQ(value(), 47) << "turned back: the rest of the other way is forgotten";
    bar.wheel(20);
    EXPECT_EQ(value(), 44);
    bar.Value(2);
    taken();
    bar.wheel(120);
    bar.wheel(120);
    EXPECT_EQ(taken(), (Log{"MouseWheel 1", "Change 2", "Scroll 0", "MouseWheel 1"}));
    bar.EnableWheel(false);
    EXPECT_FALSE(bar.wheel(-120));
    EXPECT_EQ(taken(), Log{});
}

TEST_F(ScrollControlTest, KeysMoveAfterTheirEvent) {
    bar.keyDown(ScrollKeys::down, 1);
    EXPECT_EQ(taken(), (Log{"KeyDown 40 1", "Change 50", "Scroll 51"}));
    const struct {
        std::int16_t code;
        double value;
    } rows[] = {{ScrollKeys::right, 52},     {ScrollKeys::up, 51},     {ScrollKeys::left, 50},
                {ScrollKeys::pageDown, 60},  {ScrollKeys::pageUp, 50}, {ScrollKeys::end, 100},
                {ScrollKeys::pageDown, 100}, {ScrollKeys::home, 0},    {'A', 0}};
    for (const auto& row : rows) {
        bar.keyDown(row.code, 0);
        EXPECT_EQ(value(), row.value) << row.code;
    }
    taken();
    bar.keyPress('a');
    bar.keyUp(ScrollKeys::home, 4);
    EXPECT_EQ(taken(), (Log{"KeyPress 97", "KeyUp 36 4"}));

    bar.KeyDown = [](std::int16_t& code, std::int16_t) {
        code = code == 'J' ? ScrollKeys::end : std::int16_t{0};
    };
    bar.keyDown('J', 0);
    EXPECT_EQ(value(), 100);
    bar.keyDown(ScrollKeys::home, 0);
    EXPECT_EQ(value(), 100) << "swallowed by the handler";
}

TEST_F(ScrollControlTest, WithoutKeyAndMouseEventsTheBarStillWorks) {
    bar.LaunchKeyMouseEvents(false);
    move(5);
    down(5);
    up(5);
    bar.wheel(-120);
    bar.keyDown(ScrollKeys::home, 0);
    bar.mouseLeave();
    EXPECT_EQ(taken(),
              (Log{"Change 50", "Scroll 49", "Change 49", "Scroll 52", "Change 52", "Scroll 0"}));
}

TEST_F(ScrollControlTest, NothingToScrollMovesNothing) {
    for (const std::int32_t max : {0, -50}) {
        bar.Max(max);
        taken();
        down(60);
        move(110);
        up(110);
        down(125);
        up(125);
        bar.wheel(-120);
        bar.keyDown(ScrollKeys::end, 0);
        EXPECT_EQ(value(), 0) << max;
        for (const std::string& line : taken()) EXPECT_NE(line.substr(0, 6), "Scroll") << max;
    }
}

TEST_F(ScrollControlTest, AFreshInstanceStopsBothTimers) {
    host.startTimer(RepeatTimer::Arrow, 1);
    host.startTimer(RepeatTimer::Track, 1);
    bar.initProperties();
    EXPECT_FALSE(host.timersRun());
}

}  // namespace
}  // namespace velvox
