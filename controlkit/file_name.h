// Functions on file names that access no files. Backslashes and slashes separate folders.
#pragma once

#include <string_view>

namespace velvox {

/// The extension of a path's file name: "gz" of "C:\a.b\c.tar.gz". Empty when the name has no dot
/// or when its last dot is its first or last character (".profile").
std::string_view fileExtension(std::string_view path);

/// Whether a name matches a pattern, or one of several patterns separated by semicolons:
/// "*.jpg;*.png". `*` matches any characters, `?` matches one; ASCII letters match in either case.
/// Takes at most time proportional to the name's length times the pattern's length.
bool matchesPattern(std::string_view name, std::string_view pattern);

}  // namespace velvox
