// The characters that divide requests and answers. No text of a window has them, so nothing is
// escaped.
#pragma once

namespace velvox::drive {

constexpr char endOfWord = '\x1F';  ///< after each word of a request
constexpr char endOfText = '\x1E';  ///< after a request and after an answer

}  // namespace velvox::drive
