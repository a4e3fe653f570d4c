// No handler calls this catcher, so the tests call it directly.
#include "tests/catchers/catcher_table.h"

namespace velvox::testing {
namespace {

const std::string host = "http://video.google.com";
const std::string gvpPrefix = host + "/videogvp/";
const std::string docid = "-1234567890123456789";
const std::string address = host + "/videoplay?docid=" + docid;
const std::string aviAddress = "http://vp.video.google.com/videodownload?a=1&docid=" + docid;
const std::string avi = "http://vp.video.google.com/";
const std::string scanning = "pane <font face='tahoma' size='2' >Scanning For Video...</font>\n";

/// The effects up to the first reply.
std::string start(const std::string& from = address, const std::string& id = docid) {
    return "ketqua=\nlinkin.Enabled False\n" + scanning + "yield\npane " + from + "\n" + scanning +
           fetchThroughLink2(host + "/videohosted?docid\\" + id);
}

/// The effects from the first reply up to the second one.
std::string others(const std::string& at) {
    return "pane <font face='tahoma' size='2' >Scanning For Other File Types...</font>\nfetch " +
           at + "\n";
}

/// The effects up to the second reply if the first reply has no file name: the same address is
/// fetched twice.
std::string again(const std::string& from = address, const std::string& id = docid) {
    return start(from, id) + others(host + "/videohosted?docid\\" + id);
}

std::string line(const std::string& url, const std::string& kind) {
    return "\\r\\n<br><font face='tahoma' size='2'><a href='" + url + "'>Download " + kind + "</a>";
}

std::string flvLine(const std::string& name, const std::string& id = docid) {
    return line(host + "/videofile/" + name + ".flv?docid=" + id + "&itag=5", "FLV");
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
    const std::string gvp = gvpPrefix + "abc.gvp?docid=" + docid;
    const std::string flv = flvLine("abc");
    const std::string odd = avi + "..b?x&amp;y&docid=" + docid;
    expectEffects(
        &Form1::GoogleCatcher,
        {{"all",
          address,
          {"x.gvp?docid= " + gvp, "&docid=" + docid + " src=" + aviAddress + "\"",
           mp4Block("http://a/b.mp4")},
          start() + "ketqua=" + flv + "\nlink2=" + gvp + "\n" + others(gvp) + hosted +
              end(flv + line(aviAddress, "AVI") + line("http://a/b.mp4", "MP4"))},
         {"AVI and MP4, where escaped ampersands become bare and dots stay",
          address,
          {"", odd, mp4Block("c..d&amp;amp;e")},
          again() + hosted +
              end(line(avi + "..b?x&y&docid=" + docid, "AVI") + line("c..d&e", "MP4"))},
         // Without the marker "&docid=" the AVI's address has the length of the marker less 1: only
         // the server, without its "/".
         {"AVI without docid, MP4 without its block",
          address,
          {"", avi + "x", std::string(86, '.') + "m123456ipoddownloadlink"},
          again() + hosted + end(line("http://vp.video.google.com", "AVI") + line("m", "MP4"))}});
}

TEST(GoogleCatcherTest, CutsTheNameByTheLengthOfTheDocid) {
    const auto run = [](const std::string& id, const std::string& inPage, const std::string& name,
                        const std::string& shown) {
        const std::string from = "?docid=" + id;
        const std::string gvp = gvpPrefix + name + ".gvp?docid=" + id;
        const std::string links = flvLine(shown, id);
        return CatcherRow{id,
                          from,
                          {gvpPrefix + inPage + ".gvp?docid=", ""},
                          start(from, id) + "ketqua=" + links + "\nlink2=" + gvp + "\n" +
                              others(gvp) + end(links)};
    };
    const auto nameless = [](const std::string& from, const std::string& id) {
        return CatcherRow{from, from, {"", ""}, again(from, id) + end("")};
    };
    expectEffects(&Form1::GoogleCatcher,
                  {run("12345678901234567", "abc", "abc.gv", "abc.gv"),
                   run("12345678901234567890123", "abc", "", ""),
                   // Doubled dots are removed from the link that is shown, not from the address
                   // that is fetched.
                   run(docid, "a..b...c", "a..b...c", "a.b..c"),
                   nameless("x?docid=1&docid=2&hl=en", "1&docid=2&hl=en"), nameless("docid=", ""),
                   nameless(host, "//video.google.com")});
}

TEST(GoogleCatcherTest, LetsEveryFailureThroughWithTheBoxDisabled) {
    const std::string tooLong = "docid=123456789012345678901234";
    const std::string page = gvpPrefix + "abc";
    expectEffects(
        &Form1::GoogleCatcher,
        {{"first fetch", address, {failure}, start() + thrown},
         {"second fetch", address, {"", failure}, again() + thrown},
         {"third fetch", address, {"", aviAddress, failure}, again() + hosted + thrown},
         {"no room for the name",
          tooLong,
          {page + ".gvp?docid="},
          start(tooLong, tooLong.substr(6)) + thrown},
         {"no end of the name", address, {page}, start() + thrown},
         {"no MP4 end", address, {"", aviAddress, "ipoddownloaddiv"}, again() + hosted + thrown},
         {"no AVI marker far into the page",
          address,
          {"", std::string(99, ' ') + avi},
          again() + thrown}});
}

}  // namespace
}  // namespace velvox::testing
