#include "controlkit/scroll_control.h"

#include <gtest/gtest.h>

#include <string>

namespace velvox {
namespace {

/// A window that only remembers, and loses the capture as a real one does: with a call back.
class FakeHost : public ScrollHost {
 public:
    void repaint() override {}
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
    bool atRest() const { return !captured && !period[0] && !period[1]; }

    int leaveRequests = 0;
    bool captured = false;
    bool enabled = true;
    int period[2] = {};  // of the arrows, of the track
    std::function<void()> onCaptureLost;
};

/// A bar of 130 by 16 pixels: arrows at 0..9 and 120..129, a thumb of 12 pixels whose start goes
/// from 10 to 108, at 59 for the value 50.
class ScrollControlTest : public testing::Test {
 protected:
    ScrollControlTest() {
        bar.resize(130, 16, 96);
        host.onCaptureLost = [this] { bar.captureLost(); };
        bar.Change = [this](const FixedPoint& old) { log += "Change " + old.text() + ";"; };
        bar.Scroll = [this] { log += "Scroll " + bar.Value().text() + ";"; };
        bar.MouseHover = [this] { log += "MouseHover;"; };
        bar.MouseLeave = [this] { log += "MouseLeave;"; };
        bar.MouseWheel = [this](std::int16_t sens) { note("MouseWheel", sens); };
        bar.MouseDown = mouse("MouseDown");
        bar.MouseUp = mouse("MouseUp");
        bar.MouseDblClick = mouse("MouseDblClick");
        bar.KeyDown = [this](std::int16_t& code, int shift) { note("KeyDown", code, shift); };
        bar.KeyUp = [this](std::int16_t& code, int shift) { note("KeyUp", code, shift); };
        bar.KeyPress = [this](std::int16_t& character) { note("KeyPress", character); };
    }

    void note(const char* name, auto... numbers) {
        log += name;
        ((log += " " + std::to_string(static_cast<int>(numbers))), ...);
        log += ";";
    }
    ScrollControl::MouseHandler mouse(const char* name) {
        return [this, name](MouseButton button, std::int16_t shift, bool control) {
            note(name, button, shift, control);
        };
    }
    void down(int along) { bar.mouseDown({along, 8}, {MouseButton::Left}); }
    void up(int along, int across = 8) { bar.mouseUp({along, across}, {MouseButton::Left}); }
    void move(int along, int across = 8) { bar.mouseMove({along, across}, {}); }

    /// What has happened since the last call.
    std::string taken() { return std::exchange(log, {}); }
    double value() const { return bar.Value().toDouble(); }

    std::string log;
    FakeHost host;
    ScrollControl bar{Axis::Vertical, host};
};

TEST_F(ScrollControlTest, AClickOnAnArrowStepsBetweenItsTwoMouseEvents) {
    bar.mouseDown({125, 8}, {MouseButton::Left, 3});
    bar.mouseUp({125, 8}, {MouseButton::Left, 2});
    EXPECT_EQ(taken(), "MouseDown 1 3 1;Change 50;Scroll 51;MouseUp 1 2 1;");
    EXPECT_TRUE(host.atRest());
    bar.mouseDoubleClick({125, 8}, {MouseButton::Left});
    EXPECT_EQ(taken(), "MouseDblClick 1 0 0;Change 51;Scroll 52;");
    EXPECT_TRUE(host.captured) << "a second quick click holds the arrow as the first did";
    up(125);
    taken();
    bar.mouseDown({125, 8}, {MouseButton::Right});
    down(5);
    bar.mouseUp({5, 8}, {MouseButton::Right});
    EXPECT_EQ(bar.held(), ScrollPart::LessArrow) << "the right button's release ends nothing";
    EXPECT_EQ(taken(), "MouseDown 2 0 0;MouseDown 1 0 0;Change 52;Scroll 51;MouseUp 2 0 0;");
}

TEST_F(ScrollControlTest, AHeldArrowRepeatsWithTheInterval) {
    down(5);
    EXPECT_EQ(host.period[0], 250) << "longer at first, so that a click steps once";
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(host.period[0], 100);
    EXPECT_EQ(value(), 48);
    move(15);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 48) << "pauses while the pointer is off the arrow";
    EXPECT_EQ(bar.touchOf(ScrollPart::LessArrow), Touch::None);
    move(5);
    bar.MouseInterval(30);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 47);
    EXPECT_EQ(host.period[0], 30);
    bar.MouseInterval(0);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 47);
    EXPECT_EQ(host.period[0], 0);
    up(5);
    bar.MouseInterval(1000);
    down(5);
    EXPECT_EQ(host.period[0], 1000);
    up(5);
    bar.tick(RepeatTimer::Arrow);
    EXPECT_EQ(value(), 46) << "a tick that comes late does nothing";
    host.startTimer(RepeatTimer::Track, 1);
    bar.initProperties();
    EXPECT_TRUE(host.atRest()) << "a fresh instance stops both timers";
}

TEST_F(ScrollControlTest, AHeldTrackPagesUntilTheThumbIsUnderThePointer) {
    down(85);
    EXPECT_EQ(host.period[1], 250);
    EXPECT_EQ(bar.touchOf(ScrollPart::TrackAfter), Touch::Down);
    for (int i = 0; i < 10; ++i) bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 70);
    EXPECT_EQ(bar.touchOf(ScrollPart::TrackAfter), Touch::None);
    move(115);
    bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 80) << "the pointer has moved on";
    move(20);
    bar.tick(RepeatTimer::Track);
    EXPECT_EQ(value(), 80) << "and never back";
}

TEST_F(ScrollControlTest, AThumbFollowsThePointerPastBothEnds) {
    bar.Value(50.25);
    taken();
    down(60);
    move(500);
    EXPECT_EQ(taken(), "MouseDown 1 0 0;Change 50.25;Scroll 100;");
    EXPECT_EQ(bar.geometry().thumb().end(), 120);
    move(-500);
    EXPECT_EQ(value(), 0);
    EXPECT_EQ(bar.geometry().thumb().start, 10);
    move(70);
    EXPECT_EQ(value(), 60) << "grabbed where it was: the offset is kept";
    move(60);
    EXPECT_EQ(value(), 50.25) << "the fraction where it began";
    move(70);
    move(70, 16 + 8 * 16);
    EXPECT_EQ(value(), 50.25) << "strayed too far: back to the start";
    EXPECT_EQ(bar.held(), ScrollPart::Thumb);
    move(70, 15 + 8 * 16);
    EXPECT_EQ(value(), 60);
    up(70);
    EXPECT_TRUE(host.atRest());
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
    const int requests = host.leaveRequests;
    host.capture(false);
    EXPECT_EQ(bar.held(), ScrollPart::None);
    EXPECT_GT(host.leaveRequests, requests) << "the leave that came during the press was ignored";
    move(100);
    EXPECT_EQ(value(), 60);
    down(5);
    move(5, -40);
    taken();
    bar.captureLost();
    EXPECT_EQ(taken(), "MouseLeave;") << "lost outside: the hover must not stick";
    EXPECT_EQ(host.period[0], 0);
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
    EXPECT_EQ(taken(), "MouseHover;MouseLeave;");
    for (const bool leaveFirst : {true, false}) {
        move(60);
        down(60);
        if (leaveFirst) bar.mouseLeave();
        move(60, -30);
        if (!leaveFirst) bar.mouseLeave();
        taken();
        up(60, -30);
        EXPECT_EQ(taken(), "MouseUp 1 0 0;MouseLeave;") << leaveFirst;
    }
    move(60);
    bar.hidden();
    EXPECT_EQ(taken(), "MouseHover;MouseLeave;");
}

TEST_F(ScrollControlTest, DisablingWhileHeldLetsGoOfEverything) {
    move(5);
    down(5);
    taken();
    bar.Enabled(false);
    EXPECT_TRUE(host.atRest());
    EXPECT_FALSE(host.enabled);
    bar.tick(RepeatTimer::Arrow);
    move(5);
    down(5);
    up(5);
    bar.keyDown(ScrollKeys::end, 0);
    bar.keyPress('x');
    bar.keyUp(ScrollKeys::end, 0);
    EXPECT_FALSE(bar.wheel(120));
    EXPECT_EQ(taken(), "MouseLeave;");
    EXPECT_EQ(value(), 49);
    bar.Enabled(true);
    EXPECT_TRUE(host.enabled);

    // By a handler, at any point.
    bar.MouseDown = [&](auto...) { bar.Enabled(false); };
    down(5);
    EXPECT_EQ(value(), 49);
    EXPECT_TRUE(host.atRest());
    bar.Enabled(true);
    bar.MouseDown = {};
    bar.Scroll = [&] { bar.Enabled(false); };
    down(5);
    EXPECT_TRUE(host.atRest()) << "the repeat must not start for a press that is over";
    bar.Enabled(true);
    bar.KeyDown = [&](auto&&...) { bar.Enabled(false); };
    bar.keyDown(ScrollKeys::home, 0);
    EXPECT_EQ(value(), 48);
}

TEST_F(ScrollControlTest, WheelTurnsAddUpToNotches) {
    EXPECT_TRUE(bar.wheel(240));
    EXPECT_EQ(taken(), "MouseWheel 1;Change 50;Scroll 47;MouseWheel 1;Change 47;Scroll 44;");
    // Turned back, the rest of the other way is forgotten.
    const std::pair<int, double> rows[] = {{-80, 44}, {-80, 47}, {100, 47}, {20, 44}};
    for (const auto& [turn, now] : rows) {
        bar.wheel(turn);
        EXPECT_EQ(value(), now) << turn;
    }
    bar.Value(2);
    taken();
    bar.wheel(240);
    EXPECT_EQ(taken(), "MouseWheel 1;Change 2;Scroll 0;MouseWheel 1;");
    bar.EnableWheel(false);
    EXPECT_FALSE(bar.wheel(-120));
    EXPECT_EQ(taken(), "");
}

TEST_F(ScrollControlTest, KeysMoveAfterTheirEvent) {
    bar.keyDown(ScrollKeys::down, 1);
    EXPECT_EQ(taken(), "KeyDown 40 1;Change 50;Scroll 51;");
    const std::pair<std::int16_t, double> rows[] = {
        {ScrollKeys::right, 52},     {ScrollKeys::up, 51},     {ScrollKeys::left, 50},
        {ScrollKeys::pageDown, 60},  {ScrollKeys::pageUp, 50}, {ScrollKeys::end, 100},
        {ScrollKeys::pageDown, 100}, {ScrollKeys::home, 0},    {'A', 0}};
    for (const auto& [code, now] : rows) {
        bar.keyDown(code, 0);
        EXPECT_EQ(value(), now) << code;
    }
    taken();
    bar.keyPress('a');
    bar.keyUp(ScrollKeys::home, 4);
    EXPECT_EQ(taken(), "KeyPress 97;KeyUp 36 4;");
    bar.KeyDown = [](std::int16_t& code, int) { code = code == 'J' ? ScrollKeys::end : 0; };
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
    EXPECT_EQ(taken(), "Change 50;Scroll 49;Change 49;Scroll 52;Change 52;Scroll 0;");
    // Nothing to scroll.
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
        EXPECT_EQ(taken(), "") << max;
    }
}

}  // namespace
}  // namespace velvox
