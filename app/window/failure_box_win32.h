#pragma once

#include <string_view>

namespace velvox {

/// Reports a failure to the user in a message box: an introduction, and the UTF-8 text under it.
/// Allocates nothing of its own, so that it can report the failure of an allocation. While one box
/// is open, further reports are dropped.
void showFailureBox(const wchar_t* introduction, std::string_view text) noexcept;

}  // namespace velvox
