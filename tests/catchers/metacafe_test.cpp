#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

std::string start(const std::string& address) {
    return "linkin.Enabled False\n"
           "pane <font face='tahoma' size='2'>Connecting...</font>\n"
           "link2=" +
           address + "\n";
}

std::string navigation(const std::string& id) {
    return "navigate http://www.metacafe.com/fplayer/" + id +
           "/lifted.swf?playerVars=autoPlay=yes\n";
}

TEST(MetaCafeTest, IsListedWithItsExample) {
    expectListed("Metacafe.com", "http://www.metacafe.com/watch/983094/dog_singing_hippo/");
}

TEST(MetaCafeTest, LoadsThePlayerOfSixCharactersAndLeavesTheBoxDisabled) {
    const auto run = [](const std::string& address, const std::string& id) {
        return CatcherRow{address,
                          address,
                          {},
                          start(address) + navigation(id) +
                              "pane <font face='tahoma' size='2'>Sending URL Request...</font>\n"};
    };
    expectEffects(&Form1::MetaCafe,
                  {run("http://www.metacafe.com/watch/612285/some_title/", "612285"),
                   run("http://www.metacafe.com/watch/1234567/x/", "123456"),
                   run("/watch/12/watch/345678", "12/wat"), run("/watch/", "")});
}

TEST(MetaCafeTest, ReportsEachFailure) {
    const std::string red = redLine("Download Failed !");
    const std::string address = "http://www.metacafe.com/watch/612285/";
    expectEffects(
        &Form1::MetaCafe,
        {{"no video", "http://x/y/z", {}, start("http://x/y/z") + red},
         {"nothing", "", {}, start("") + red},
         {"browser that refuses", address, {}, start(address) + navigation("612285") + red, true}});
}

}  // namespace
}  // namespace velvox::testing
