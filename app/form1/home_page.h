#pragma once

#include <string_view>

namespace velvox {

/// The product's home page, opened by the blinking link; the news file lies beside it.
inline constexpr std::string_view homePage = "http://www.velvox.example/";

}  // namespace velvox
