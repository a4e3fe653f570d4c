// The tool tip that shows the address of a link.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/tool_tip_win32.h"

namespace velvox {

class AddressTip {
 public:
    /// `owner` is the control that contains the links.
    explicit AddressTip(HWND owner);

    /// Shows the start of `address` below a position on the screen.
    void show(std::string_view address, POINT screen);
    void hide() noexcept;

 private:
    HWND owner_;
    std::wstring text_;
    OwnedToolTip window_;
};

}  // namespace velvox
