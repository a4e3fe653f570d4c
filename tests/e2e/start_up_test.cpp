// The window after its start: address box, site list, example, keyboard.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

TEST(StartUpTest, OpensWithTheFirstSiteAndTheAddressBoxFocused) {
    const Program program;
    EXPECT_EQ(driver().text(program.window()), "Velvox 1.00");
    EXPECT_EQ(program.address(), "");
    EXPECT_EQ(driver().focus(program.window()), driver().ask({"find", program.edit()}));
    EXPECT_FALSE(program.areaShown());
    EXPECT_FALSE(driver().enabled(program.control(controlId("isButton1"))));
    // The window is in the middle of the session's screen.
    const Bounds place = driver().rect(program.window());
    EXPECT_EQ(place, (Bounds{(1280 - 497) / 2, (1024 - 297) / 2, 497, 297}));
}

TEST(StartUpTest, LoadsNoLibraryThatOnlyARunNeeds) {
    const Program program;
    std::ifstream file("/proc/" + std::to_string(program.process().id()) + "/maps");
    const std::string loaded{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(loaded.find("/comctl32.dll"), loaded.npos);
    for (const char* library : {"winhttp", "oleacc", "msftedit", "riched20"})
        EXPECT_EQ(loaded.find("/" + std::string(library) + ".dll"), loaded.npos) << library;
}

TEST(StartUpTest, EscapeAndCloseHideTheResultArea) {
    const Program program;
    program.pasteNew("the next address", "the next address");
    InputSimulator().key("End").type("x").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), "the next addressx"));
    program.start(exampleAddresses[3]);
    EXPECT_NO_THROW(driver().waitPart(program.control(controlId("output")), "<a href="));
    EXPECT_NO_THROW(program.awaitEndOfRun());
    InputSimulator().key("Escape").act();
    EXPECT_NO_THROW(driver().waitGone(program.control(controlId("outer"))));
    EXPECT_EQ(driver().focus(program.window()), driver().ask({"find", program.edit()}));
    // The next paste replaces the address instead of adding to it.
    InputSimulator().key("ctrl+v").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), "the next address"));
    program.expectGoodRun();
}

// Tab reaches all controls that can be used, in reading order, and no hidden ones.
TEST(StartUpTest, TabGoesRoundThroughAllThatCanBeUsed) {
    const Program program;
    const auto expectRound = [&](const std::vector<std::string>& stops) {
        for (std::size_t i = 0; i <= stops.size(); ++i) {
            const std::string& stop = stops[i % stops.size()];
            EXPECT_TRUE(eventually([&] { return driver().focus(program.window()) == stop; },
                                   Milliseconds(3000)))
                << "stop " << i << " is not "
                << driver().ask({"tree", driver().focus(program.window())});
            if (i < stops.size()) InputSimulator().key("Tab").act();
        }
    };
    const auto handle = [&](ControlId id) { return driver().ask({"find", program.control(id)}); };
    expectRound({driver().ask({"find", program.edit()}), handle(controlId("UniXPButton1")),
                 handle(controlId("ds")), handle(controlId("vd")), handle(controlId("Label12")),
                 handle(controlId("isButton2"))});
    // The example is used with the keyboard only.
    InputSimulator().key("Tab").key("Tab").key("Tab").key("Return").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), exampleAddresses[0]));
}

}  // namespace
}  // namespace velvox::e2e
