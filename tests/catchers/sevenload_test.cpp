#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string address = "http://en.sevenload.com/videos/AbCdEfG-some-title";
const std::string goodPage = "<script>fo.addVariable(\"sess\", \"x1y2\");</script>";
const std::string enabled = "linkin.Enabled True\n";
const std::string red =
    enabled + "pane <font face='tahoma' size='2' color='red'>Video Unavilable...</font>\n";

std::string untilPage(const std::string& from) {
    return "pane <font face='tahoma' size='2' >Connecting...</font>\n"
           "linkin.Enabled False\n"
           "fetch " +
           from + "\n";
}

const std::string pageCame = "pane <font face='tahoma' size='2' >Getting URL Info..</font>\n";

std::string player(const std::string& id, const std::string& sess) {
    const std::string at =
        "http://api.sevenload.com/api/player/id/" + id + "/locale/en_GB/sess/" + sess;
    return pageCame + "link2=" + at + "\nfetch " + at + "\n";
}

std::string link(const std::string& url) {
    return "ketqua=" + url + "\npane <a href='" + url +
           "'><font face='tahoma' size='2'>Download</a></font>\n";
}

TEST(SevenLoadTest, LeavesTheBoxDisabledAfterALink) {
    const std::string reply = "<item url=\"http://a/b.flv\">";
    const auto run = [&](const char* name, const std::string& from, const std::string& page,
                         const std::string& id, const std::string& sess) {
        return CatcherRow{
            name, from, {page, reply}, untilPage(from) + player(id, sess) + link("http://a/b.flv")};
    };
    expectEffects(
        &Form1::SevenLoad,
        {run("as written", address, goodPage, "AbCdEfG", "x1y2"),
         run("quotes and blanks everywhere", address,
             " f\"o. addVariable( \"\" s ess , \" x 1 y2 \" ) ; ", "AbCdEfG", "x1y2"),
         run("empty session", address, "fo.addVariable(sess,);", "AbCdEfG", ""),
         run("seven characters of whatever follows", "en.sevenload.com/videos/a/b/c/d/e", goodPage,
             "a/b/c/d", "x1y2"),
         // Without "/videos/" the places are 0 and that of the first "/": six from the eighth on.
         run("no final slash", "http://en.sevenload.com/videos", goodPage, "en.sev", "x1y2")});
}

TEST(SevenLoadTest, CutsTheFileFromThePlayersReply) {
    const std::pair<std::string, std::string> cases[] = {
        {"x URL=\"http://a/b.flv?x", "http://a/b.flv"},
        {"b.flv url=b.flv url=\"a b\".flv", "a b\".flv"},
        {"url=\"a.FLV\" url=\"b.flv\"", "a.FLV\" url=\"b.flv"},
        {"url=\"'><script>.flv", "'><script>.flv"},
    };
    std::vector<CatcherRow> rows;
    for (const auto& [reply, url] : cases)
        rows.push_back({reply,
                        address,
                        {goodPage, reply},
                        untilPage(address) + player("AbCdEfG", "x1y2") + link(url)});
    expectEffects(&Form1::SevenLoad, rows);
}

TEST(SevenLoadTest, EnablesTheBoxAfterEachFailure) {
    const std::string asked = untilPage(address) + player("AbCdEfG", "x1y2");
    expectEffects(
        &Form1::SevenLoad,
        {{"removed",
          address,
          {goodPage + "The photo/video could not be found"},
          untilPage(address) +
              "pane <font face='tahoma' size='2' color='red'>Video/Photo Could Not Be Found | The "
              "File Mightbe Removed...</font>\n" +
              enabled},
         {"failed fetch", address, {failure}, untilPage(address) + red},
         {"no session", address, {"fo.addVariable(other,x);"}, untilPage(address) + pageCame + red},
         {"failed second fetch", address, {goodPage, failure}, asked + red},
         {"reply without address", address, {goodPage, "a.flv"}, asked + red},
         {"reply without file", address, {goodPage, ".flv url=\"a\""}, asked + red}});
}

}  // namespace
}  // namespace velvox::testing
