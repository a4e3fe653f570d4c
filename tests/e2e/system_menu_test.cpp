// The window's system menu.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

constexpr const char* menu = "#32768";

void closeMenu(const Program& program) {
    driver().waitVisible(menu);
    // A menu is visible a little before it takes keys.
    EXPECT_TRUE(eventually([&] { return program.holdsPointer(); }));
    InputSimulator().key("Escape").act();
    EXPECT_NO_THROW(driver().waitGone(menu));
}

TEST(SystemMenuTest, OpensByKeyIconAndTitleAndSaysWhatThisIs) {
    const Program program;
    const Bounds place = driver().rect(program.window());
    const Point icon{place.left + 15, place.top + 15};
    InputSimulator().key("alt+space").act();
    closeMenu(program);
    InputSimulator().moveTo({place.left + 300, place.top + 12}).press(3).release(3).act();
    closeMenu(program);
    InputSimulator().click(icon).act();
    program.chooseFromMenu("b");
    const std::string about = dismissBox();
    EXPECT_NE(about.find("About Velvox"), std::string::npos) << about;
    EXPECT_NE(about.find("Velvox 1.00"), std::string::npos) << about;
    EXPECT_NE(about.find("MIT licence"), std::string::npos) << about;
    // Dragging the window by its icon opens no menu.
    InputSimulator().moveTo(icon).press().act();
    ASSERT_TRUE(eventually([&] { return program.holdsPointer(); }));
    InputSimulator().moveTo({icon.x + 40, icon.y + 30}).act();
    EXPECT_TRUE(eventually([&] { return driver().rect(program.window()).left != place.left; }));
    InputSimulator().release().act();
    EXPECT_TRUE(eventually([&] { return !program.holdsPointer(); }));
    program.expectGoodRun();
}

TEST(SystemMenuTest, APressBesideTheQuitButtonEndsTheProgramToo) {
    Program program;
    const Bounds quit = driver().rect(program.control(controlId("isButton2")));
    const Point beside{quit.left - 2, quit.top + quit.height / 2};
    InputSimulator().moveTo(beside).press().moveTo({beside.x - 60, beside.y}).release().act();
    InputSimulator().type("x").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), "x")) << "released elsewhere";
    InputSimulator().click(beside).act();
    EXPECT_EQ(program.process().exitWithin(Driver::patience), 0);
}

}  // namespace
}  // namespace velvox::e2e
