// Every host name and address that the program knows. Host names are matched inside pasted
// addresses; addresses are what the program itself requests.
#pragma once

#include <string_view>

namespace velvox::hosts {

// Host names, as they are searched for.
inline constexpr std::string_view youtubeHost = "youtube.com";
inline constexpr std::string_view clipHost = "clip.vn";
inline constexpr std::string_view sevenloadHost = "sevenload.com";
inline constexpr std::string_view veohHost = "veoh.com";
inline constexpr std::string_view metacafeHost = "metacafe.com";
inline constexpr std::string_view comicHost = "vuilen.com";

// Addresses, as they are requested.
inline constexpr std::string_view youtube = "http://www.youtube.com";
inline constexpr std::string_view googleVideo = "http://video.google.com";
inline constexpr std::string_view googleVideoServer = "http://vp.video.google.com/";
inline constexpr std::string_view clip = "http://www.clip.vn";
inline constexpr std::string_view music = "http://www.nhacso.net";
inline constexpr std::string_view sevenload = "http://en.sevenload.com";
inline constexpr std::string_view sevenloadPlayer = "http://api.sevenload.com";
inline constexpr std::string_view veoh = "http://www.veoh.com";
inline constexpr std::string_view metacafe = "http://www.metacafe.com";
inline constexpr std::string_view comic = "http://comic.vuilen.com";
inline constexpr std::string_view home = "http://www.velvox.example/";

// Entries of the site list.
inline constexpr std::string_view youtubeEntry = "Youtube";
inline constexpr std::string_view clipEntry = "Clip.vn";
inline constexpr std::string_view musicEntry = "Album Nhacso.net";
inline constexpr std::string_view sevenloadEntry = "Sevenload.com";
inline constexpr std::string_view veohEntry = "Veoh.com";
inline constexpr std::string_view metacafeEntry = "Metacafe.com";
inline constexpr std::string_view comicEntry = "Comic Books - Vuilen.com";

}  // namespace velvox::hosts
