// Addresses that come by paste or drop, as other programs hand them over.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// The address in a text: its first line that is not blank, without blanks around it; empty when
/// there is none, or when that line is longer than 64 KiB.
std::string givenAddress(std::string_view text);

/// The address in the content of an Internet shortcut (a .url file); empty when it has none.
std::string shortcutAddress(std::string_view content);

}  // namespace velvox
