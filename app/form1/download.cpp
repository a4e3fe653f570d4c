// The Download button: shows the result area and calls the catcher of every site whose pattern the
// pasted address contains.
#include "app/form1/form1.h"
#include "base/join.h"
#include "base/text.h"

namespace velvox {
namespace {

constexpr int shownTop = 600;  // twips

}  // namespace

void Form1::UniXPButton1_Click() {
    outer.Top(shownTop);
    outer.Visible(true);
    web.Navigate("about:blank");
    ShowStatus("<font face='tahoma' size='2'>Please wait...</font>");
    isButton1.Enabled(false);
    ketqua.Text("");
    bool matched = false;
    for (const Site& site : sites_) {
        // The address box is read again for each site, because a catcher may have changed its text.
        if (!site.catcher || !text::contains(linkin.Text(), join({site.host, site.path}))) continue;
        (this->*site.catcher)();
        matched = true;
    }
    isButton1.Enabled(true);
    if (matched) return;
    desktop_.showExclamation("Please Enter A Valid URL...");
    outer.Visible(false);
}

std::string Form1::FetchPage(std::string_view url) {
    return Inet1.OpenURL(url);
}

void Form1::ShowStatus(std::string_view html) {
    output.DocumentHTML(html);
}

}  // namespace velvox
