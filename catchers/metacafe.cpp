// Metacafe watch pages: loads the player for the video's number into the preview browser. When the
// browser arrives, link_handling.cpp shows the link and enables the address box again.
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

void Form1::MetaCafe() try {
    CurrentSite = "MetaCafe";
    linkin.Enabled(false);
    ShowStatus("<font face='tahoma' size='2'>Connecting...</font>");
    link2.Text(linkin.Text());
    // The search for `p2` finds the first "/" of "/watch/" itself, so `p2` equals `p1` and the
    // number cut out is always 6 bytes long.
    const auto p1 = text::find(linkin.Text(), "/watch/");
    const auto p2 = text::find(linkin.Text(), "/", p1);
    const auto id = text::slice(linkin.Text(), p1 + 7, ((p2 - p1) + 7) - 1);
    web.Navigate(join({servers::metacafe, "/fplayer/", id, "/lifted.swf?playerVars=autoPlay=yes"}));
    ShowStatus("<font face='tahoma' size='2'>Sending URL Request...</font>");
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Download Failed !</font>");
}

}  // namespace velvox
