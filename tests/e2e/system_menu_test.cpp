// The window's system menu.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

void closeMenu(const Program& program) {
    program.chooseFromMenu("Escape");
    EXPECT_NO_THROW(driver().waitGone("#32768"));
}

TEST(SystemMenuTest, OpensByKeyIconAndTitleAndSaysWhatThisIs) {
    const Program program;
    const Bounds place = driver().rect(program.window());
    InputSimulator().key("alt+space").act();
    closeMenu(program);
    InputSimulator().moveTo({place.left + 300, place.top + 12}).press(3).release(3).act();
    closeMenu(program);
    InputSimulator().click({place.left + 15, place.top + 15}).act();
    program.chooseFromMenu("b");
    const std::string about = dismissBox();
    EXPECT_NE(about.find("About Velvox"), std::string::npos) << about;
    EXPECT_NE(about.find("Velvox 1.00"), std::string::npos) << about;
    EXPECT_NE(about.find("MIT licence"), std::string::npos) << about;
    program.expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
