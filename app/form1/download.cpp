// The Download button: prepares the result area, recognises the pasted address and calls the
// catcher of every pattern that it contains.
#include "app/form1/form1.h"
#include "base/join.h"
#include "base/text.h"
#include "catchers/hosts.h"

namespace velvox {
namespace {

constexpr int shownTop = 600;  // twips

const struct {
    std::string_view host;
    std::string_view path;
    void (Form1::*catcher)();
} patterns[] = {
    {hosts::youtubeHost, "/watch?v=", &Form1::YoutubeCatcher},
    {hosts::clipHost, "/watch/", &Form1::ClipVNCatcher},
    {hosts::sevenloadHost, "/videos", &Form1::SevenLoad},
    {hosts::veohHost, "/videos/", &Form1::veOH},
    {hosts::metacafeHost, "/watch/", &Form1::MetaCafe},
    {hosts::comicHost, "/view_book_detail.php?bookid=", &Form1::ComicVuiLen},
};

}  // namespace

void Form1::UniXPButton1_Click() {
    outer.Top(shownTop);
    outer.Visible(true);
    web.Navigate("about:blank");
    ShowStatus("<font face='tahoma' size='2'>Please wait...</font>");
    isButton1.Enabled(false);
    ketqua.Text("");
    bool matched = false;
    for (const auto& pattern : patterns) {
        // The box is read afresh for each test: a catcher may have changed its text.
        if (!text::contains(linkin.Text(), join({pattern.host, pattern.path}))) continue;
        (this->*pattern.catcher)();
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
