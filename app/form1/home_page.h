#pragma once

#include <string_view>

namespace velvox {

/// The product's home page, which the blinking link opens. The news file is in the same folder.
inline constexpr std::string_view homePage = "http://www.velvox.example/";

}  // namespace velvox
