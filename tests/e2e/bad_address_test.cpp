// What a user may paste instead of an address. The window survives it and serves the next one.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

constexpr const char* pleaseWait = "<font face='tahoma' size='2'>Please wait...</font>";
constexpr const char* failed = "<font face='tahoma' size='2' color='red'>Download Failed !</font>";

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

void expectPaneFor(const Program& program, const std::string& address, const char* html) {
    SCOPED_TRACE(address.substr(0, 80));
    program.start(address);
    program.expectPane(html);
    EXPECT_FALSE(program.addressLocked());
}

TEST(BadAddressTest, WhatMatchesNoSiteIsRefusedInABox) {
    const Program program;
    program.start("no address");
    EXPECT_EQ(driver().waitBox(), "Velvox\nPlease Enter A Valid URL...");
    // The sign in the box, beside its text.
    EXPECT_TRUE(driver().visible("#32770/Static#0"));
    EXPECT_NE(driver().ask({"send", "#32770/Static#0", "0x171", "0", "0"}), "0");
    const Point button = middleOf(driver().rect("#32770/Button"));
    InputSimulator().click(button).act();
    driver().waitGone("#32770");
    EXPECT_NO_THROW(driver().waitGone(program.control(controlId("outer"))));
    // What is typed next replaces the address. Input during the run would be dropped.
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

// Whatever stands in an address goes out as it is, made valid only where it would break the
// request; an answer that fits nothing ends in the red line.
TEST(BadAddressTest, OddCharactersAndLengthsGoOut) {
    const Proxy proxy([](const Exchange& to) { to.reply("nothing", "404 Not Found"); });
    const Program program(Network::proxy(proxy.port()));
    expectPaneFor(program, "http://www.veoh.com/videos/\"a'<b>\\%41 \xC3\xA9\xF0\x9F\x98\x80?",
                  failed);
    const std::string longId(100'000, 'a');
    expectPaneFor(program, "http://www.veoh.com/videos/" + longId, failed);
    EXPECT_EQ(proxy.addresses(),
              (std::vector<std::string>{"http://www.veoh.com/rest/video/"
                                        "\"a'<b>\\%41%20%C3%A9%F0%9F%98%80/details",
                                        "http://www.veoh.com/rest/video/" + longId + "/details"}));
}

}  // namespace
}  // namespace velvox::e2e
