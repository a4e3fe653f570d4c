// Sevenload pages: the page contains a session value. The request with that value to the site's
// player interface returns the address of the media file.
#include <utility>

#include "app/form1/form1.h"
#include "base/join.h"
#include "base/text.h"

namespace velvox {

// Success leaves the address box (`linkin`) disabled; only failures enable it.
void Form1::SevenLoad() try {
    ShowStatus("<font face='tahoma' size='2' >Connecting...</font>");
    linkin.Enabled(false);
    std::string page = FetchPage(linkin.Text());
    if (text::contains(page, "The photo/video could not be found")) {
        ShowStatus(
            "<font face='tahoma' size='2' color='red'>Video/Photo Could Not Be Found | The File "
            "Mightbe Removed...</font>");
        linkin.Enabled(true);
        return;
    }
    ShowStatus("<font face='tahoma' size='2' >Getting URL Info..</font>");
    page = text::without(std::move(page), "\" ");
    auto p1 = text::find(page, "fo.addVariable(sess,");
    auto p2 = text::find(page, ");", p1);
    const std::string sess{text::slice(page, p1 + 20, (p2 - p1) - 20)};
    // The search for `b` finds the last "/" of "/videos/", so `b - a` is always 7.
    const auto a = text::find(linkin.Text(), "/videos/");
    const auto b = text::find(linkin.Text(), "/", a + 1);
    const auto id = text::slice(linkin.Text(), a + 8, b - a);
    link2.Text(join({"http://api.sevenload.com/api/player/id/", id, "/locale/en_GB/sess/", sess}));
    page = FetchPage(link2.Text());
    p1 = text::findIgnoringCase(page, "url=\"");
    p2 = text::find(page, ".flv", p1);
    ketqua.Text(std::string(text::slice(page, p1 + 5, ((p2 - p1) - 5) + 4)));
    ShowStatus(
        join({"<a href='", ketqua.Text(), "'><font face='tahoma' size='2'>Download</a></font>"}));
} catch (const std::exception&) {
    linkin.Enabled(true);
    ShowStatus("<font face='tahoma' size='2' color='red'>Video Unavilable...</font>");
}

}  // namespace velvox
