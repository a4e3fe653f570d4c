// The sites that the program knows: the one table for the site list, its examples and the
// Download button. To add a site, declare its catcher in app/form1/form1.h, write it in a source of
// its own in this folder, and add a row.
#pragma once

#include <string_view>

#include "app/form1/form1.h"

namespace velvox {

// Host names, as they are searched for inside addresses.
namespace hosts {
inline constexpr std::string_view youtube = "youtube.com";
inline constexpr std::string_view clip = "clip.vn";
inline constexpr std::string_view sevenload = "sevenload.com";
inline constexpr std::string_view veoh = "veoh.com";
inline constexpr std::string_view metacafe = "metacafe.com";
inline constexpr std::string_view comic = "vuilen.com";
}  // namespace hosts

// Addresses of the sites' servers, as they are requested.
namespace servers {
inline constexpr std::string_view youtube = "http://www.youtube.com";
inline constexpr std::string_view googleVideo = "http://video.google.com";
inline constexpr std::string_view googleVideoFiles = "http://vp.video.google.com/";
inline constexpr std::string_view clip = "http://www.clip.vn";
inline constexpr std::string_view music = "http://www.nhacso.net";
inline constexpr std::string_view sevenload = "http://en.sevenload.com";
inline constexpr std::string_view sevenloadPlayer = "http://api.sevenload.com";
inline constexpr std::string_view veoh = "http://www.veoh.com";
inline constexpr std::string_view metacafe = "http://www.metacafe.com";
inline constexpr std::string_view comic = "http://comic.vuilen.com";
}  // namespace servers

struct Site {
    std::string_view entry;        ///< its text in the site list
    std::string_view server;       ///< the example's address up to its path
    std::string_view examplePath;  ///< the rest of the example's address
    std::string_view host;         ///< an address of the site contains the host,
    std::string_view path;         ///< directly followed by this
    void (Form1::*catcher)();      ///< null: neither listed nor downloaded from
};

/// In the order of the list and of the tests that the Download button makes.
inline constexpr Site sites[] = {
    {"Youtube", servers::youtube, "/watch?v=Yp5O8Koe_A4", hosts::youtube,
     "/watch?v=", &Form1::YoutubeCatcher},
    {"Clip.vn", servers::clip,
     "/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html", hosts::clip,
     "/watch/", &Form1::ClipVNCatcher},
    // The music albums have an example but neither an entry in the list nor a catcher.
    {"Album Nhacso.net", servers::music, "/Music/Album/2007/06/05F62FB2/", {}, {}, nullptr},
    {"Sevenload.com", servers::sevenload, "/videos/s931TZW/HiB-auf-dem-CSD", hosts::sevenload,
     "/videos", &Form1::SevenLoad},
    {"Veoh.com", servers::veoh, "/videos/v669398tRxFQc4d", hosts::veoh, "/videos/", &Form1::veOH},
    {"Metacafe.com", servers::metacafe, "/watch/983094/dog_singing_hippo/", hosts::metacafe,
     "/watch/", &Form1::MetaCafe},
    {"Comic Books - Vuilen.com", servers::comic, "/view_book_detail.php?bookid=42&chapterid=354",
     hosts::comic, "/view_book_detail.php?bookid=", &Form1::ComicVuiLen},
};

}  // namespace velvox
