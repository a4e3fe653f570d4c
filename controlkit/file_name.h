// What can be read from the name of a file alone. Folders are separated by backslashes or slashes.
#pragma once

#include <string_view>

namespace velvox {

/// What follows the last dot of a path's last part: "gz" of "C:\a.b\c.tar.gz". Empty without a dot,
/// where nothing precedes it (".profile") and where nothing follows it.
std::string_view fileExtension(std::string_view path);

/// Whether a name matches a pattern, or one of several with semicolons between them: "*.jpg;*.png".
/// `*` stands for any characters, `?` for one; ASCII letters match in either case. Takes time in
/// proportion to name times pattern at most.
bool matchesPattern(std::string_view name, std::string_view pattern);

}  // namespace velvox
