// YouTube watch pages: checks that the video exists, then loads the player into the preview
// browser. When the browser arrives, link_handling.cpp shows the link.
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

void Form1::YoutubeCatcher() try {
    linkin.Enabled(false);
    ketqua.Text("");
    ShowStatus("<font face='tahoma' size='2' >Scanning For Video...</font>");
    const std::string page = FetchPage(linkin.Text());
    ShowStatus("<font face='tahoma' size='2' >Connecting...</font>");
    if (text::contains(page, "contained a malformed")) {
        ShowStatus(
            "<font face='tahoma' size='2' color='red'>Cannot Validate Request | The Video Might Be "
            "Removed From Server..</font>");
        ketqua.Text("");
    } else {
        ShowStatus("<font face='tahoma' size='2' >Getting Preview and Download Url..</font>");
        // The identifier is everything after the first "=", further parameters included.
        const auto p = text::find(linkin.Text(), "=");
        const auto identifier = text::slice(linkin.Text(), p + 1, text::length(linkin.Text()));
        web.Navigate(join({servers::youtube, "/v/", identifier}));
    }
    linkin.Enabled(true);
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Video Unavilable..</font>");
}

}  // namespace velvox
