// Metacafe watch pages: loads the player for the video's number into the preview browser, whose
// arrival gives the link and enables the address box again (link_handling.cpp).
#include "base/join.h"
#include "base/text.h"
#include "catchers/sites.h"

namespace velvox {

void Form1::MetaCafe() try {
    CurrentSite = "MetaCafe";
    linkin.Enabled(false);
    ShowStatus("<font face='tahoma' size='2'>Connecting...</font>");
    link2.Text(linkin.Text());
    // The second search starts on the first "/" of "/watch/" and finds it: the length is always 6.
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
