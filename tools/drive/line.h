// The driver speaks in lines: a request is words, an answer is one line. Texts with line ends,
// NULs and quotes travel escaped, so both sides share these functions.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velvox::drive {

// One line for any bytes: \r, \n, \0, \\ and \" are escaped.
std::string escaped(std::string_view text);

// The words of a request. A word with blanks stands in double quotes; backslash escapes hold
// everywhere. Throws std::runtime_error for an open quote or an unknown escape.
std::vector<std::string> words(std::string_view line);

}  // namespace velvox::drive
