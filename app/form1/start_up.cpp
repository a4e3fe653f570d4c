// What the window does when it loads, the site list, and the small click handlers.
#include "app/form1/form1.h"
#include "base/join.h"
#include "catchers/hosts.h"

namespace velvox {
namespace {

constexpr OleColour red = 255;
constexpr OleColour blue = 0xFF0000;
constexpr std::size_t leadingBlanks = 128;

}  // namespace

void Form1::Form_Load() {
    for (const std::string_view entry :
         {hosts::youtubeEntry, hosts::clipEntry, hosts::sevenloadEntry, hosts::veohEntry,
          hosts::metacafeEntry, hosts::comicEntry})
        ds.AddItem(entry);
    ds.ListIndex(0);
    web.Navigate("about:blank");
    NewsText = std::string(leadingBlanks, ' ') + "| Loading News....  |";
}

// The music albums' comparison stays although that entry is not in the list.
void Form1::ds_Click() {
    const auto example = [this](std::string_view entry, std::string_view address,
                                std::string_view path) {
        if (ds.Text() == entry) vd.Caption(join({address, path}));
    };
    example(hosts::youtubeEntry, hosts::youtube, "/watch?v=Yp5O8Koe_A4");
    example(hosts::clipEntry, hosts::clip,
            "/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html");
    example(hosts::musicEntry, hosts::music, "/Music/Album/2007/06/05F62FB2/");
    example(hosts::sevenloadEntry, hosts::sevenload, "/videos/s931TZW/HiB-auf-dem-CSD");
    example(hosts::veohEntry, hosts::veoh, "/videos/v669398tRxFQc4d");
    example(hosts::metacafeEntry, hosts::metacafe, "/watch/983094/dog_singing_hippo/");
    example(hosts::comicEntry, hosts::comic, "/view_book_detail.php?bookid=42&chapterid=354");
}

void Form1::vd_Click() {
    linkin.Text(vd.Caption());
}

void Form1::Label12_Click() {
    desktop_.openAddress(hosts::home);
}

void Form1::isButton1_Click() {
    web.Navigate("about:blank");
    outer.Visible(false);
}

void Form1::Timer1_Timer() {
    Label12.ForeColor(Label12.ForeColor() == red ? blue : red);
}

}  // namespace velvox
