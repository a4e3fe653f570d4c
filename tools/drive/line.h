// The lines that the driver and its client exchange: a request is a line of words, an answer is one
// line. Line ends, NULs and quotes in texts are escaped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velvox::drive {

// Converts any bytes to one line: \r, \n, \0, \\ and \" are escaped.
std::string escaped(std::string_view text);

// Splits a request into its words. A word with blanks is in double quotes; backslash escapes are
// valid everywhere. Throws std::runtime_error for an open quote or an unknown escape.
std::vector<std::string> words(std::string_view line);

}  // namespace velvox::drive
