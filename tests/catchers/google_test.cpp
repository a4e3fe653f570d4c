// No handler reaches this catcher: it is called directly.
#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string scanning = "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n";
const std::string others =
    "pane <font face='tahoma' size='2' >Scanning For Other File Types...</font>\n";
const std::string docid = "-1234567890123456789";
const std::string host = "http://video.google.com";
const std::string gvpPrefix = host + "/videogvp/";
const std::string address = host + "/videoplay?docid=" + docid;

std::string fetch(const std::string& at) {
    return "link2=" + at + "\nfetch " + at + "\n";
}

std::string start(const std::string& from, const std::string& id) {
    return "ketqua=\nlinkin.Enabled False\n" + scanning + "yield\npane " + from + "\n" + scanning +
           fetch(host + "/videohosted?docid\\" + id);
}

std::string flvLine(const std::string& name, const std::string& id) {
    return "\\r\\n<br><font face='tahoma' size='2'><a href='" + host + "/videofile/" + name +
           ".flv?docid=" + id + "&itag=5'>Download FLV</a>";
}

std::string aviLine(const std::string& url) {
    return "\\r\\n<br><font face='tahoma' size='2'><a href='" + url + "'>Download AVI</a>";
}

std::string mp4Line(const std::string& url) {
    return "\\r\\n<br><font face='tahoma' size='2'><a href='" + url + "'>Download MP4</a>";
}

/// The step that writes the links down, and the last one.
std::string end(const std::string& links) {
    return "ketqua=" + links + "\nlinkin.Enabled True\npane " + links + "\n";
}

std::string mp4Block(const std::string& url) {
    return "<div id=ipoddownloaddiv" + std::string(87 - 15, '.') + url + "123456ipoddownloadlink";
}

const std::string aviAddress = "http://vp.video.google.com/videodownload?a=1&docid=" + docid;

TEST(GoogleCatcherTest, CollectsUpToThreeLinks) {
    const std::string gvp = gvpPrefix + "abc.gvp?docid=" + docid;
    const std::string flv = flvLine("abc", docid);
    const std::string found = start(address, docid) + "ketqua=" + flv + "\nlink2=" + gvp + "\n" +
                              others + "fetch " + gvp + "\n";
    const std::string again = others + "fetch " + host + "/videohosted?docid\\" + docid + "\n";
    const std::string hosted = fetch(host + "/videohosted?docid=" + docid);
    expectEffects(
        &Form1::GoogleCatcher,
        {{"all",
          address,
          {"x " + gvp, "src=" + aviAddress + "\"", mp4Block("http://a/b.mp4")},
          found + hosted + end(flv + aviLine(aviAddress) + mp4Line("http://a/b.mp4"))},
         {"FLV alone", address, {gvp, "nothing"}, found + end(flv)},
         {"none: the same address is fetched twice",
          address,
          {"a", "b"},
          start(address, docid) + again + end("")},
         {"AVI and MP4 from the second of two equal fetches",
          address,
          {"a", aviAddress, mp4Block("m")},
          start(address, docid) + again + hosted + end(aviLine(aviAddress) + mp4Line("m"))},
         {"escaped ampersands become bare, dots stay",
          address,
          {"", "http://vp.video.google.com/a..b?x&amp;y&docid=" + docid,
           mp4Block("c..d&amp;amp;e")},
          start(address, docid) + again + hosted +
              end(aviLine("http://vp.video.google.com/a..b?x&y&docid=" + docid) +
                  mp4Line("c..d&e"))},
         // With no marker the length is that of the marker less 1: the server without its "/".
         {"AVI without docid",
          address,
          {"", "http://vp.video.google.com/x", mp4Block("m")},
          start(address, docid) + again + hosted +
              end(aviLine("http://vp.video.google.com") + mp4Line("m"))}});
}

TEST(GoogleCatcherTest, CutsTheNameByTheLengthOfTheDocid) {
    const auto run = [](const std::string& id, const std::string& inPage, const std::string& name,
                        const std::string& shown) {
        const std::string from = host + "/videoplay?docid=" + id;
        const std::string gvp = gvpPrefix + name + ".gvp?docid=" + id;
        return CatcherRow{id,
                          from,
                          {gvpPrefix + inPage + ".gvp?docid=", ""},
                          start(from, id) + "ketqua=" + flvLine(shown, id) + "\nlink2=" + gvp +
                              "\n" + others + "fetch " + gvp + "\n" + end(flvLine(shown, id))};
    };
    expectEffects(&Form1::GoogleCatcher,
                  {run(docid, "abc", "abc", "abc"), run(docid, "", "", ""),
                   run("12345678901234567", "abc", "abc.gv", "abc.gv"),
                   run("12345678901234567890123", "abc", "", ""),
                   // Doubled dots go from the line, not from the address that is fetched.
                   run(docid, "a..b...c", "a..b...c", "a.b..c")});
}

TEST(GoogleCatcherTest, TakesTheDocidFromWhatThereIs) {
    const std::pair<std::string, std::string> cases[] = {
        {"x?docid=1&docid=2&hl=en", "1&docid=2&hl=en"},
        {"docid=", ""},
        {"http://video.google.com/", "//video.google.com/"},
    };
    for (const auto& [from, id] : cases) {
        const std::string at = host + "/videohosted?docid\\" + id;
        expectEffects(
            &Form1::GoogleCatcher,
            {{from, from, {"", ""}, start(from, id) + others + "fetch " + at + "\n" + end("")}});
    }
}

TEST(GoogleCatcherTest, LetsEveryFailureThroughWithTheBoxDisabled) {
    const std::string tooLong = "123456789012345678901234";
    const struct {
        const char* name;
        std::string address;
        std::vector<Reply> replies;
        Fault fault;
    } rows[] = {
        {"first fetch", address, {failure}, Fault::Transfer},
        {"third fetch", address, {"", aviAddress, failure}, Fault::Transfer},
        {"docid too long for the name",
         "docid=" + tooLong,
         {gvpPrefix + "abc.gvp?docid="},
         Fault::InvalidCall},
        {"no end of the name", address, {gvpPrefix + "abc"}, Fault::InvalidCall},
        {"no MP4 end", address, {"", aviAddress, "ipoddownloaddiv"}, Fault::InvalidCall},
        {"no AVI marker far into the page",
         address,
         {"", std::string(99, ' ') + "http://vp.video.google.com/"},
         Fault::InvalidCall},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Form1Fixture fixture;
        try {
            fixture.run(&Form1::GoogleCatcher, row.address, row.replies);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const RuntimeFailure& thrown) {
            EXPECT_EQ(thrown.fault(), row.fault);
        }
        EXPECT_FALSE(fixture.form.linkin.Enabled());
    }
}

}  // namespace
}  // namespace velvox::testing
