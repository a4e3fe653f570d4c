// Texts that a user may paste instead of an address. The program must survive them and handle the
// next address.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

constexpr const char* pleaseWait = "<font face='tahoma' size='2'>Please wait...</font>";

void expectRefusal(const Program& program, const std::string& address) {
    SCOPED_TRACE(address.substr(0, 80));
    program.start(address);
    EXPECT_EQ(driver().waitBox(), "Velvox\nPlease Enter A Valid URL...");
    EXPECT_TRUE(program.areaShown());
    EXPECT_EQ(program.pane(), pleaseWait);
    dismissBox();
    EXPECT_NO_THROW(driver().waitGone(program.control(controlId("outer"))));
    EXPECT_NO_THROW(program.awaitEndOfRun());
    EXPECT_EQ(program.address(), address);
    EXPECT_FALSE(program.addressLocked());
}

TEST(BadAddressTest, WhatMatchesNoSiteIsRefusedInABox) {
    const Program program;
    program.start("no address");
    EXPECT_EQ(driver().waitBox(), "Velvox\nPlease Enter A Valid URL...");
    // The icon of the message box.
    EXPECT_TRUE(driver().visible("#32770/Static"));
    EXPECT_NE(driver().ask({"send", "#32770/Static", "0x171", "0", "0"}), "0");
    const Point button = middleOf(driver().rect("#32770/Button"));
    InputSimulator().click(button).act();
    driver().waitGone("#32770");
    EXPECT_NO_THROW(driver().waitGone(program.control(controlId("outer"))));
    // A typed text replaces the address. The run must have ended, because input during a run is
    // dropped.
    program.awaitEndOfRun();
    driver().ask({"post", program.edit(), "0x102", "120", "0"});  // WM_CHAR
    EXPECT_NO_THROW(driver().waitText(program.edit(), "x"));

    for (const char* address :
         {"", "http://www.YouTube.com/watch?v=Yp5O8Koe_A4",
          "http://video.google.com/videoplay?docid=1", "file:///etc/passwd", "javascript:alert(1)",
          "ftp://ftp.example/", "\"'<>&%\\ \x7F", "Địa chỉ 日本 \xF0\x9F\x98\x80"})
        expectRefusal(program, address);
    expectRefusal(program, std::string(100'000, 'x'));
    program.expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
