// Veoh pages: the site's REST interface returns the details of a video, one attribute per line.
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

void Form1::veOH() try {
    // The search below takes "?" as the end of the video's identifier, so the address must contain
    // one.
    if (!text::contains(linkin.Text(), "?")) linkin.Text(linkin.Text() + "?");
    linkin.Enabled(false);
    ShowStatus("<font face='tahoma' size='2'>Connecting....</font>");
    const auto a = text::find(linkin.Text(), "/videos/");
    const auto q = text::find(linkin.Text(), "?", a);
    link2.Text(std::string(text::slice(linkin.Text(), a + 8, q - 8 - a)));
    link2.Text(join({servers::veoh, "/rest/video/", link2.Text(), "/details"}));
    const std::string page = FetchPage(link2.Text());
    ShowStatus("<font face='tahoma' size='2'>Requesting URL....</font>");
    auto p1 = text::find(page, "fullPreviewHashPath=");
    auto p2 = text::find(page, "\r\n", p1);
    const auto flv = text::slice(page, p1 + 20 + 1, ((p2 - p1) - 20) - 3);
    if (text::contains(page, ".mp4")) {
        p1 = text::find(page, "ipodLink=");
        p2 = text::find(page, "\r\n", p1);
        const auto mp4 = text::slice(page, p1 + 1 + 9, ((p2 - p1) - (9 + 1)) - 2);
        ShowStatus(join({"<font face='tahoma' size='2'><a href='", flv,
                         "'>Download FLV</a><br><a href='", mp4, "'>Download MP4</a></font>"}));
    } else {
        ShowStatus(
            join({"<font face='tahoma' size='2'><a href='", flv, "'>Download FLV</a></font>"}));
    }
    linkin.Enabled(true);
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Download Failed !</font>");
}

}  // namespace velvox
