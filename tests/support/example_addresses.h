// The example address of each site, in the order of the main window's list.
#pragma once

namespace velvox {

inline constexpr const char* exampleAddresses[] = {
    "http://www.youtube.com/watch?v=Yp5O8Koe_A4",
    "http://www.clip.vn/watch/VjW,vn,Clip-an-mung-ban-thang-2-1-cua-UAE-vao-luoi-Quatar.html",
    "http://en.sevenload.com/videos/s931TZW/HiB-auf-dem-CSD",
    "http://www.veoh.com/videos/v669398tRxFQc4d",
    "http://www.metacafe.com/watch/983094/dog_singing_hippo/",
    "http://comic.vuilen.com/view_book_detail.php?bookid=42&chapterid=354",
};

}  // namespace velvox
