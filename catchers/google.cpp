// Google Video pages: shows up to three links (FLV, AVI, MP4), cut out of up to three replies. No
// handler calls this catcher, but it is complete. It handles no exceptions: they reach its caller.
#include "app/form1/form1.h"
#include "base/join.h"
#include "base/text.h"

namespace velvox {

static constexpr std::string_view server = "http://video.google.com";

void Form1::GoogleCatcher() {
    ketqua.Text("");
    linkin.Enabled(false);
    ShowStatus("<font face='tahoma' size='2' >Scanning For Video...</font>");
    desktop_.yield();
    const auto p = text::find(linkin.Text(), "docid=");
    const std::string docid{text::slice(linkin.Text(), p + 6, text::length(linkin.Text()))};
    ShowStatus(linkin.Text());
    ShowStatus("<font face='tahoma' size='2' >Scanning For Video...</font>");
    // The site gets the backslash unchanged.
    link2.Text(join({server, "/videohosted?docid\\", docid}));
    std::string page = FetchPage(link2.Text());

    const std::string prefix = join({server, "/videogvp/"});
    auto p1 = text::find(page, prefix);
    if (p1 != 0) {
        const auto p2 = text::find(page, ".gvp?docid=", p1);
        // The length is correct only for a `docid` of 20 bytes. A longer `docid` cuts the name
        // short, a shorter one makes it too long.
        const std::string name{
            text::slice(page, p1 + text::length(prefix), (p2 - p1) - 2 - text::length(docid) - 11)};
        const std::string gvp = join({prefix, name, ".gvp?docid=", docid});
        ketqua.append({"\r\n<br><font face='tahoma' size='2'><a href='", server, "/videofile/",
                       name, ".flv?docid=", docid, "&itag=5'>Download FLV</a>"});
        ketqua.Text(text::replaceAll(ketqua.Text(), "..", "."));
        link2.Text(gvp);
    }

    ShowStatus("<font face='tahoma' size='2' >Scanning For Other File Types...</font>");
    page = FetchPage(link2.Text());
    p1 = text::find(page, "http://vp.video.google.com/");
    if (p1 != 0) {
        const std::string marker = join({"&docid=", docid});
        const auto p2 = text::find(page, marker, p1);
        const auto avi = text::slice(page, p1, (p2 - p1) + text::length(marker));
        ketqua.append(
            {"\r\n<br><font face='tahoma' size='2'><a href='", avi, "'>Download AVI</a>"});
        link2.Text(join({server, "/videohosted?docid=", docid}));
        page = FetchPage(link2.Text());
        // The MP4 address lies at fixed offsets from the start and the end of the page's download
        // block.
        const auto block = text::find(page, "ipoddownloaddiv");
        const auto blockEnd = text::find(page, "ipoddownloadlink");
        const auto mp4 = text::slice(page, block + 87, (blockEnd - block) - 6 - 87);
        ketqua.append(
            {"\r\n<br><font face='tahoma' size='2'><a href='", mp4, "'>Download MP4</a>"});
    }
    ketqua.Text(text::replaceAll(ketqua.Text(), "amp;", ""));
    linkin.Enabled(true);
    ShowStatus(ketqua.Text());
}

}  // namespace velvox
