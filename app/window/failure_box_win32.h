#pragma once

#include <string_view>

namespace velvox {

/// Shows a failure in a message box: an introduction and below it a UTF-8 text. Allocates no memory
/// itself, so that it can report a failed allocation. While one box is open, further reports are
/// dropped.
void showFailureBox(const wchar_t* introduction, std::string_view text) noexcept;

}  // namespace velvox
