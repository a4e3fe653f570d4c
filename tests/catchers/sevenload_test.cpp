#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://en.sevenload.com/videos/AbCdEfG-some-title";
const std::string goodPage = ");<script>fo.addVariable(\"sess\", \"x1y2\");</script>";
// The file's address starts after the first `url="`, in any letter case, and ends with the next
// ".flv".
const std::string file = "a.FLV\"'><script>.flv";
const std::string reply = "b.flv url=c.flv uRL=\"" + file + " url=\"d.flv";

std::string untilPage(const std::string& from) {
    return "pane <font face='tahoma' size='2' >Connecting...</font>\n"
           "linkin.Enabled False\n"
           "fetch " +
           from + "\n";
}

const std::string pageCame = "pane <font face='tahoma' size='2' >Getting URL Info..</font>\n";

std::string player(const std::string& id, const std::string& sess) {
    return pageCame + fetchThroughLink2("http://api.sevenload.com/api/player/id/" + id +
                                        "/locale/en_GB/sess/" + sess);
}

TEST(SevenLoadTest, IsListedWithItsExample) {
    expectListed("Sevenload.com", "http://en.sevenload.com/videos/s931TZW/HiB-auf-dem-CSD");
}

TEST(SevenLoadTest, LeavesTheBoxDisabledAfterALink) {
    const auto run = [](const char* name, const std::string& from, const std::string& page,
                        const std::string& id, const std::string& sess) {
        return CatcherRow{name,
                          from,
                          {page, reply},
                          untilPage(from) + player(id, sess) + "ketqua=" + file +
                              "\npane <a href='" + file +
                              "'><font face='tahoma' size='2'>Download</a></font>\n"};
    };
    expectEffects(
        &Form1::SevenLoad,
        {run("as written", address, goodPage, "AbCdEfG", "x1y2"),
         run("quotes and blanks everywhere", address,
             " f\"o. addVariable( \"\" s ess , \" x 1 y2 \" ) ; ", "AbCdEfG", "x1y2"),
         run("empty session", address, "fo.addVariable(sess,);", "AbCdEfG", ""),
         run("seven characters of whatever follows", "en.sevenload.com/videos/a/b/c/d/e", goodPage,
             "a/b/c/d", "x1y2"),
         // Without "/videos/", the position of "/videos/" counts as 0. The first "/" is at 6, so
         // the catcher takes six characters from position 8 on.
         run("no final slash", "http://en.sevenload.com/videos", goodPage, "en.sev", "x1y2")});
}

TEST(SevenLoadTest, EnablesTheBoxAfterEachFailure) {
    const std::string red = redLine("Video Unavilable...");
    const std::string asked = untilPage(address) + player("AbCdEfG", "x1y2");
    expectEffects(
        &Form1::SevenLoad,
        {{"removed",
          address,
          {goodPage + "The photo/video could not be found"},
          untilPage(address) +
              "pane <font face='tahoma' size='2' color='red'>Video/Photo Could Not Be Found | The "
              "File Mightbe Removed...</font>\nlinkin.Enabled True\n"},
         {"failed fetch", address, {failure}, untilPage(address) + red},
         {"no session", address, {"fo.addVariable(other,x);"}, untilPage(address) + pageCame + red},
         {"failed second fetch", address, {goodPage, failure}, asked + red},
         {"reply without address", address, {goodPage, "a.flv"}, asked + red},
         {"reply without file", address, {goodPage, ".flv url=\"a\""}, asked + red}});
}

}  // namespace
}  // namespace velvox::testing
