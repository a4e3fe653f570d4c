// YouTube and Metacafe redirect the address of their player to an address from which the link to
// the media file can be cut. This handler runs when the preview browser has arrived at that
// address.
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

// If the address lacks an expected part, a search or a slice throws and the handler ends without
// writing anything.
void Form1::web_DocumentComplete() try {
    if (web.Offline()) return;

    if (text::contains(web.LocationURL(), join({hosts::metacafe, "/f/"}))) {
        const auto p = text::find(web.LocationURL(), "mediaURL=");
        const auto q = text::find(web.LocationURL(), ".flv", p);
        std::string link{text::slice(web.LocationURL(), p + 9, q - p - 5)};
        link = text::replaceAll(link, "%20", " ");
        link = text::replaceAll(link, "%5B", "[");
        link = text::replaceAll(link, "%5D", "]");
        linkin.Enabled(true);
        if (text::contains(link, "video_removed.flv"))
            ShowStatus(
                "<font face='tahoma' size=2 color='red'>Video Removed From Server...</font>");
        else
            ShowStatus(
                join({"<a href='", link, "'><font face='tahoma' size=2>Download</font></a>"}));
    }

    const std::string host = join({hosts::youtube, "/"});
    if (text::contains(web.LocationURL(), host)) {
        const auto p = text::find(web.LocationURL(), host);
        const auto q = text::find(web.LocationURL(), "?video_id=", p);
        const std::string piece{
            text::slice(web.LocationURL(), p + text::length(host), (q - p) - text::length(host))};
        const std::string link = text::replaceAll(web.LocationURL(), piece, "get_video");
        ShowStatus(join({"<a href='", link, "'><font face='tahoma' size=2>Download</font></a>"}));
        linkin.Enabled(true);
    }
} catch (const std::exception&) {
    // This page of YouTube or Metacafe has an address without a media link: show nothing.
}

}  // namespace velvox
