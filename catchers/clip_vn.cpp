// Clip.vn: cuts the clip's code out of the page address and requests the site's feed for that code.
// The feed lists the media files.
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

void Form1::ClipVNCatcher() try {
    linkin.Enabled(false);
    const std::string prefix = join({servers::clip, "/watch/"});
    auto p1 = text::find(linkin.Text(), prefix);
    auto p2 = text::find(linkin.Text(), ",", p1);
    const std::string code{
        text::slice(linkin.Text(), p1 + text::length(prefix), (p2 - p1) - text::length(prefix))};
    ShowStatus("<font face='tahoma' size='2' >Scanning For Video...</font>");
    link2.Text(join({servers::clip, "/movies/nfo/", code}));
    const std::string page = FetchPage(link2.Text());
    ShowStatus("<font face='tahoma' size='2' >Getting Links...</font>");
    // The text of each link shows the number of all links, not the link's own number.
    const auto n = text::splitUpperBound(page, ".flv");
    const std::string count = std::to_string(n);
    ketqua.Text("");
    text::Position pos = 1;
    for (text::Position i = 1; i <= n; ++i) {
        p1 = text::find(page, "<enclosure url=", pos);
        p2 = text::find(page, ".flv", p1);
        // The address starts after the quotation mark that follows "url=" and ends with ".flv".
        const auto url = text::slice(page, p1 + 15 + 1, ((p2 - p1) - 15) + 3);
        ketqua.append({"<a href='", url, "'><font face='tahoma' size='2'>Download Clip ", count,
                       "</a><br></font>"});
        pos = p2;
    }
    ShowStatus(ketqua.Text());
    linkin.Enabled(true);
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Video Unavilable..</font>");
}

}  // namespace velvox
