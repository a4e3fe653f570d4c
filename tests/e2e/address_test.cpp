// Addresses that are pasted from the clipboard and copied to it.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

constexpr int sevenloadEntry = 2;
constexpr const char* mp4 = "http://content.veoh.com/ipod/v669398tRxFQc4d/h669398.mp4?ct=47aa9c01";

TEST(AddressTest, APasteOutsideTheTextFieldReplacesTheAddress) {
    const Program program;
    const auto edit = [&] { return driver().ask({"find", program.edit()}); };
    program.enter("what was there");
    InputSimulator().key("Tab").act();
    ASSERT_TRUE(eventually([&] { return driver().focus(program.window()) != edit(); }));
    program.pasteNew(" \n\thttp://a/1 \r\n", "http://a/1");
    EXPECT_EQ(driver().focus(program.window()), edit());
    // The next paste replaces the pasted address, which is selected. After "End" it inserts the
    // address without the blanks around it. Typed text is not changed.
    InputSimulator().key("ctrl+v").key("End").type(" ").key("ctrl+v").type(" ").act();
    EXPECT_NO_THROW(driver().waitText(program.edit(), "http://a/1 http://a/1 "));

    // Sevenload's catcher leaves the address box locked. A paste still replaces the address.
    program.startExample(sevenloadEntry);
    EXPECT_NO_THROW(driver().waitPart(program.control(controlId("output")), "<a href="));
    program.awaitEndOfRun();
    program.pasteNew(exampleAddresses[3], exampleAddresses[3]);
    EXPECT_TRUE(program.addressLocked());
    EXPECT_FALSE(program.areaShown());
    program.click(controlId("UniXPButton1"));
    EXPECT_NO_THROW(driver().waitPart(program.control(controlId("output")), mp4));
    program.awaitEndOfRun();

    // Ctrl+C copies the addresses of the selected links.
    InputSimulator().key("Tab").key("shift+Tab").key("Down").key("Down").key("ctrl+c").act();
    // The menu saves the addresses of all links to a file.
    InputSimulator().key("shift+F10").act();
    program.chooseFromMenu("s");
    dismissBox();
    EXPECT_TRUE(eventually([] {
        const std::string saved =
            outputOf({"sh", "-c", "find \"$WINEPREFIX\" -name addresses.txt -exec cat {} +"});
        return saved.find(std::string(mp4) + "\r\n") != std::string::npos;
    }));
    program.closeArea();
    EXPECT_TRUE(eventually([&] { return program.paste(mp4); })) << program.address();
}

}  // namespace
}  // namespace velvox::e2e
