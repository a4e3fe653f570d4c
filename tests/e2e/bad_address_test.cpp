// Texts that a user may paste instead of an address. The program must survive them and handle the
// next address.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"

namespace velvox::e2e {
namespace {

using namespace std::string_literals;

TEST(BadAddressTest, WhatMatchesNoSiteIsRefusedInABox) {
    const Program program;
    for (const std::string& address :
         {""s, "file:///etc/passwd"s, "javascript:alert(1)"s, "\"'<>&%\\ \x7F"s,
          "Địa chỉ 日本 \xF0\x9F\x98\x80"s, std::string(100'000, 'x')}) {
        SCOPED_TRACE(address.substr(0, 80));
        program.start(address);
        EXPECT_EQ(driver().waitBox(), "Velvox\nPlease Enter A Valid URL...");
        const char* const icon = "#32770/Static";
        EXPECT_TRUE(driver().visible(icon));
        EXPECT_NE(driver().ask({"send", icon, "0x171", "0", "0"}), "0");  // STM_GETICON
        EXPECT_TRUE(program.areaShown());
        EXPECT_EQ(program.pane(), "<font face='tahoma' size='2'>Please wait...</font>");
        dismissBox();
        EXPECT_NO_THROW(driver().waitGone(program.control(controlId("outer"))));
        EXPECT_NO_THROW(program.awaitEndOfRun());
        EXPECT_EQ(program.address(), address);
        EXPECT_FALSE(program.addressLocked());
    }
    // A typed text replaces the address.
    driver().ask({"post", program.edit(), "0x102", "120", "0"});  // WM_CHAR
    EXPECT_NO_THROW(driver().waitText(program.edit(), "x"));
    program.expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
