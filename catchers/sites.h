// The table of all sites that the program knows. The site list, its example addresses and the
// Download button use it. To add a site, declare its catcher in app/form1/form1.h, write the
// catcher in a new source file in this folder, and add a row.
#pragma once

#include "app/form1/form1.h"

namespace velvox {

// Host names to search for in addresses.
namespace hosts {
inline constexpr std::string_view youtube = "youtube.com";
inline constexpr std::string_view metacafe = "metacafe.com";
}  // namespace hosts

// Scheme and host of addresses that the catchers request.
namespace servers {
inline constexpr std::string_view youtube = "http://www.youtube.com";
inline constexpr std::string_view clip = "http://www.clip.vn";
inline constexpr std::string_view veoh = "http://www.veoh.com";
inline constexpr std::string_view metacafe = "http://www.metacafe.com";
}  // namespace servers

inline constexpr Site sites[] = {
    {"Youtube", servers::youtube, "/watch?v=Yp5O8Koe_A4", hosts::youtube,
     "/watch?v=", &Form1::YoutubeCatcher},
    {"Clip.vn", servers::clip,
     "/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html", "clip.vn", "/watch/",
     &Form1::ClipVNCatcher},
    // The music albums have an example but neither an entry in the list nor a catcher.
    {"Album Nhacso.net", "http://www.nhacso.net", "/Music/Album/2007/06/05F62FB2/", "", "",
     nullptr},
    {"Sevenload.com", "http://en.sevenload.com", "/videos/s931TZW/HiB-auf-dem-CSD", "sevenload.com",
     "/videos", &Form1::SevenLoad},
    {"Veoh.com", servers::veoh, "/videos/v669398tRxFQc4d", "veoh.com", "/videos/", &Form1::veOH},
    {"Metacafe.com", servers::metacafe, "/watch/983094/dog_singing_hippo/", hosts::metacafe,
     "/watch/", &Form1::MetaCafe},
    {"Comic Books - Vuilen.com", "http://comic.vuilen.com",
     "/view_book_detail.php?bookid=42&chapterid=354", "vuilen.com",
     "/view_book_detail.php?bookid=", &Form1::ComicVuiLen},
};

}  // namespace velvox
