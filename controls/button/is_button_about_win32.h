#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

/// The push button's modal About box: its version and a "Close" button.
void showButtonAbout(HWND owner, std::string_view version);

}  // namespace velvox
