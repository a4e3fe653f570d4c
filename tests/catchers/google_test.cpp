// No handler calls this catcher, so the tests call it directly.
#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string host = "http://video.google.com";
const std::string gvpPrefix = host + "/videogvp/";
const std::string docid = "-1234567890123456789";
const std::string address = host + "/videoplay?docid=" + docid;
const std::string aviAddress = "http://vp.video.google.com/videodownload?a=1&docid=" + docid;
const std::string scanning = "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n";

/// The effects up to the first reply.
std::string start(const std::string& from, const std::string& id) {
    return "ketqua=\nlinkin.Enabled False\n" + scanning + "yield\npane " + from + "\n" + scanning +
           fetchThroughLink2(host + "/videohosted?docid\\" + id);
}

/// The effects before the second reply.
std::string others(const std::string& at) {
    return "pane <font face='tahoma' size='2' >Scanning For Other File Types...</font>\nfetch " +
           at + "\n";
}

std::string line(const std::string& url, const std::string& kind) {
    return "\\r\\n<br><font face='tahoma' size='2'><a href='" + url + "'>Download " + kind + "</a>";
}

std::string flvLine(const std::string& name, const std::string& id) {
    return line(host + "/videofile/" + name + ".flv?docid=" + id + "&itag=5", "FLV");
}

/// The effects up to the second reply if the first reply has a file name.
std::string found(const std::string& from, const std::string& id, const std::string& name,
                  const std::string& shownName) {
    const std::string gvp = gvpPrefix + name + ".gvp?docid=" + id;
    return start(from, id) + "ketqua=" + flvLine(shownName, id) + "\nlink2=" + gvp + "\n" +
           others(gvp);
}

/// The effects up to the second reply if the first reply has no file name: the same address is
/// fetched twice.
std::string again(const std::string& from, const std::string& id) {
    return start(from, id) + others(host + "/videohosted?docid\\" + id);
}

/// The last effects: the links are stored and shown.
std::string end(const std::string& links) {
    return "ketqua=" + links + "\nlinkin.Enabled True\npane " + links + "\n";
}

std::string mp4Block(const std::string& url) {
    return "<div id=ipoddownloaddiv" + std::string(87 - 15, '.') + url + "123456ipoddownloadlink";
}

const std::string hosted = fetchThroughLink2(host + "/videohosted?docid=" + docid);

TEST(GoogleCatcherTest, CollectsUpToThreeLinks) {
    const std::string flv = flvLine("abc", docid);
    const std::string avi = line(aviAddress, "AVI");
    expectEffects(
        &Form1::GoogleCatcher,
        {{"all",
          address,
          {"x.gvp?docid= " + gvpPrefix + "abc.gvp?docid=" + docid,
           "&docid=" + docid + " src=" + aviAddress + "\"", mp4Block("http://a/b.mp4")},
          found(address, docid, "abc", "abc") + hosted +
              end(flv + avi + line("http://a/b.mp4", "MP4"))},
         {"AVI and MP4, where escaped ampersands become bare and dots stay",
          address,
          {"", "http://vp.video.google.com/a..b?x&amp;y&docid=" + docid,
           mp4Block("c..d&amp;amp;e")},
          again(address, docid) + hosted +
              end(line("http://vp.video.google.com/a..b?x&y&docid=" + docid, "AVI") +
                  line("c..d&e", "MP4"))},
         // The marker is missing, so its position counts as 0. The length is then that of the
         // marker less 1, which cuts off the "/" after the server.
         {"AVI without docid, MP4 without its block",
          address,
          {"", "http://vp.video.google.com/x", std::string(86, '.') + "m123456ipoddownloadlink"},
          again(address, docid) + hosted +
              end(line("http://vp.video.google.com", "AVI") + line("m", "MP4"))}});
}

TEST(GoogleCatcherTest, CutsTheNameByTheLengthOfTheDocid) {
    const auto run = [](const std::string& id, const std::string& inPage, const std::string& name,
                        const std::string& shown) {
        const std::string from = "?docid=" + id;
        return CatcherRow{id,
                          from,
                          {gvpPrefix + inPage + ".gvp?docid=", ""},
                          found(from, id, name, shown) + end(flvLine(shown, id))};
    };
    expectEffects(&Form1::GoogleCatcher, {run("12345678901234567", "abc", "abc.gv", "abc.gv"),
                                          run("12345678901234567890123", "abc", "", ""),
                                          // Doubled dots are removed from the link, but not from
                                          // the address that is fetched.
                                          run(docid, "a..b...c", "a..b...c", "a.b..c")});
}

TEST(GoogleCatcherTest, TakesTheDocidFromWhatThereIs) {
    const auto run = [](const std::string& from, const std::string& id) {
        return CatcherRow{from, from, {"", ""}, again(from, id) + end("")};
    };
    expectEffects(&Form1::GoogleCatcher, {run("x?docid=1&docid=2&hl=en", "1&docid=2&hl=en"),
                                          run("docid=", ""), run(host, "//video.google.com")});
}

TEST(GoogleCatcherTest, LetsEveryFailureThroughWithTheBoxDisabled) {
    const std::string tooLong = "docid=123456789012345678901234";
    expectEffects(
        &Form1::GoogleCatcher,
        {{"first fetch", address, {failure}, start(address, docid) + thrown},
         {"second fetch", address, {"", failure}, again(address, docid) + thrown},
         {"third fetch",
          address,
          {"", aviAddress, failure},
          again(address, docid) + hosted + thrown},
         {"docid too long for the name",
          tooLong,
          {gvpPrefix + "abc.gvp?docid="},
          start(tooLong, tooLong.substr(6)) + thrown},
         {"no end of the name", address, {gvpPrefix + "abc"}, start(address, docid) + thrown},
         {"no MP4 end",
          address,
          {"", aviAddress, "ipoddownloaddiv"},
          again(address, docid) + hosted + thrown},
         {"no AVI marker far into the page",
          address,
          {"", std::string(99, ' ') + "http://vp.video.google.com/"},
          again(address, docid) + thrown}});
}

}  // namespace
}  // namespace velvox::testing
