#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string start =
    "linkin.Enabled False\n"
    "pane <font face='tahoma' size='2'>Connecting...</font>\n";
const std::string red =
    "linkin.Enabled True\n"
    "pane <font face='tahoma' size='2' color='red'>Download Failed !</font>\n";

std::string navigation(const std::string& id) {
    return "navigate http://www.metacafe.com/fplayer/" + id +
           "/lifted.swf?playerVars=autoPlay=yes\n";
}

TEST(MetaCafeTest, LoadsThePlayerOfSixCharactersAndLeavesTheBoxDisabled) {
    const std::pair<std::string, std::string> cases[] = {
        {"http://www.metacafe.com/watch/612285/some_title/", "612285"},
        {"http://www.metacafe.com/watch/1234567/x/", "123456"},
        {"http://www.metacafe.com/watch/12/abcdef", "12/abc"},
        {"http://www.metacafe.com/watch/", ""},
        {"/watch//watch/12/<'>", "/watch"},
    };
    std::vector<CatcherRow> rows;
    for (const auto& [address, id] : cases)
        rows.push_back({address,
                        address,
                        {},
                        start + "link2=" + address + "\n" + navigation(id) +
                            "pane <font face='tahoma' size='2'>Sending URL Request...</font>\n"});
    expectEffects(&Form1::MetaCafe, rows);
}

TEST(MetaCafeTest, ReportsEachFailure) {
    const std::string address = "http://www.metacafe.com/watch/612285/";
    expectEffects(&Form1::MetaCafe,
                  {{"no video", "http://x/y/z", {}, start + "link2=http://x/y/z\n" + red},
                   {"nothing", "", {}, start + "link2=\n" + red},
                   {"browser that refuses",
                    address,
                    {},
                    start + "link2=" + address + "\n" + navigation("612285") + red,
                    true}});
}

}  // namespace
}  // namespace velvox::testing
