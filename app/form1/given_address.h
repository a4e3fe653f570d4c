// Finds addresses in texts that other programs supply by paste or drop.
#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// The first line of `text` that is not blank, without surrounding blanks. Empty if there is no
/// such line or if it is longer than 64 KiB.
std::string givenAddress(std::string_view text);

/// The address in the content of an Internet shortcut (a .url file); empty if it has none.
std::string shortcutAddress(std::string_view content);

}  // namespace velvox
