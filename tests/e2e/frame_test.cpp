// The window has no caption of the system. It is moved and closed by its own controls, with the
// real pointer.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

constexpr Bounds moved(Bounds at, int x, int y) {
    return {at.left + x, at.top + y, at.width, at.height};
}

bool comesTo(const Program& program, const Bounds& place) {
    return eventually([&] { return driver().rect(program.window()) == place; });
}

// Presses the button and waits for the drag. A drag starts where the pointer is when the press is
// handled, so the pointer must not move before that. A window that has just been restored may not
// be on the display yet, so a press that misses it is repeated.
void grab(const Program& program, Point at) {
    EXPECT_TRUE(eventually([&] {
        InputSimulator().moveTo(at).press().act();
        if (eventually([&] { return program.holdsPointer(); }, Milliseconds(5000))) return true;
        InputSimulator().release().act();
        return false;
    })) << "no drag";
}

// Releases the button and waits for the end of the drag. A move that is handled later would follow
// the pointer to its next position.
void drop(const Program& program, Point at) {
    InputSimulator().moveTo(at).release().act();
    EXPECT_TRUE(eventually([&] { return !program.holdsPointer(); }));
}

// Types a key and waits until it arrives in the address box: then all earlier events are handled.
void settle(const Program& program) {
    const std::string expected = program.address() + "x";
    InputSimulator().key("x").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), expected));
}

TEST(FrameTest, EverySourceDragsTheWindowExactly) {
    const Program program;
    const Bounds title = driver().rect(program.control(controlId("Label5")));
    const Bounds end = driver().rect(program.control(controlId("topendskin")));
    Bounds place = driver().rect(program.window());
    const std::pair<const char*, Point> sources[] = {
        {"form background", {250, 210}},  // relative to the window, as the other points
        {"Label5", {middleOf(title).x - place.left, middleOf(title).y - place.top}},
        {"skinbar", {350, 12}},
        {"skinicon", {10, 15}},
        {"topendskin", {end.left - place.left + 3, end.top - place.top + end.height - 3}},
    };
    int step = 1;
    for (const auto& [source, at] : sources) {
        SCOPED_TRACE(source);
        const Point from{place.left + at.x, place.top + at.y};
        const int x = 37 * step - 90;
        const int y = 111 - 41 * step;
        grab(program, from);
        InputSimulator()
            .moveTo({from.x + 5, from.y + 1})
            .moveTo({from.x - 200, from.y + 150})
            .act();
        EXPECT_TRUE(comesTo(program, moved(place, -200, 150)));
        drop(program, {from.x + x, from.y + y});
        place = moved(place, x, y);
        EXPECT_TRUE(comesTo(program, place));
        InputSimulator().moveTo({from.x + x + 60, from.y + y - 30}).act();
        settle(program);
        EXPECT_EQ(driver().rect(program.window()), place);
        ++step;
    }
}

TEST(FrameTest, LosingThePointerEndsTheDrag) {
    const Program program;
    const auto expectEnd = [&](const std::function<void()>& losePointer) {
        const Bounds place = driver().rect(program.window());
        const Point from{place.left + 350, place.top + 12};
        grab(program, from);
        InputSimulator().moveTo({from.x + 20, from.y + 10}).act();
        const Bounds taken = moved(place, 20, 10);
        EXPECT_TRUE(comesTo(program, taken));
        losePointer();
        EXPECT_FALSE(program.holdsPointer());
        // The mouse button is still pressed.
        InputSimulator().moveTo({from.x + 40, from.y + 60}).act();
        settle(program);
        EXPECT_EQ(driver().rect(program.window()), taken);
        InputSimulator().release().act();
        settle(program);
    };
    // During the drag a message box appears, as after Enter in the empty address box.
    expectEnd([&] {
        driver().ask({"post", program.edit(), "0x100", "13", "0"});
        driver().waitBox();
        InputSimulator().moveTo({5, 5}).act();
        dismissBox();
        driver().waitGone(program.control(controlId("outer")));
        program.awaitEndOfRun();
    });
    // The system sends WM_CANCELMODE when it takes the pointer, as for its task switcher.
    expectEnd([&] { driver().ask({"send", program.window(), "0x1F", "0", "0"}); });
}

TEST(FrameTest, TheWindowCanBeMovedAndMinimisedDuringAFetch) {
    const Proxy proxy([](const Exchange& to) { to.staySilent(); });
    const Program program(proxy.port());
    program.start("http://www.youtube.com/watch?v=abc");
    ASSERT_TRUE(proxy.asked(1));
    const Bounds place = driver().rect(program.window());
    for (const bool minimised : {true, false}) {
        const char* const command = minimised ? "0xF020" : "0xF120";
        driver().ask({"post", program.window(), "0x112", command, "0"});
        EXPECT_TRUE(eventually([&] { return driver().minimised(program.window()) == minimised; }));
    }
    EXPECT_TRUE(comesTo(program, place));
    const Point bar{place.left + 350, place.top + 12};
    grab(program, bar);
    drop(program, {bar.x + 30, bar.y - 20});
    EXPECT_TRUE(comesTo(program, moved(place, 30, -20)));
    EXPECT_TRUE(program.addressLocked());
}

TEST(FrameTest, TheQuitButtonDipsUnderThePointerAndAPressBesideItEndsTheProgram) {
    Program program;
    const std::string quit = program.control(controlId("isButton2"));
    const Bounds bar = driver().rect(program.control(controlId("topendskin")));
    const Bounds atRest = driver().rect(quit);
    EXPECT_EQ(atRest.top - bar.top, 7);  // 100 twips
    InputSimulator().moveTo(middleOf(atRest)).act();
    EXPECT_TRUE(eventually([&] { return driver().rect(quit) == moved(atRest, 0, 2); }));
    InputSimulator().moveTo({bar.left - 100, bar.top + 10}).act();
    EXPECT_TRUE(eventually([&] { return driver().rect(quit) == atRest; }));
    const Point beside{atRest.left - 2, atRest.top + atRest.height / 2};
    InputSimulator().moveTo(beside).press().moveTo({beside.x - 60, beside.y}).release().act();
    settle(program);
    InputSimulator().click(beside).act();
    EXPECT_EQ(program.process().exitWithin(Driver::patience), 0);
}

// Wine 10 ends the move mode at the first message during which no mouse button is pressed, in its
// own Notepad too. Keys therefore cannot move a window.
TEST(FrameTest, CanBeMovedByKeys) {
    if (paths::platform() == "wine10") GTEST_SKIP() << "keys move no window under Wine 10";
    const Program program;
    const Bounds place = driver().rect(program.window());
    InputSimulator().key("alt+space").act();
    program.chooseFromMenu("m");
    EXPECT_TRUE(eventually([&] {
        InputSimulator().key("Right").act();
        return driver().rect(program.window()).left > place.left;
    }));
}

}  // namespace
}  // namespace velvox::e2e
