// The tool tip that shows where a link leads.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/owned_win32.h"

namespace velvox {

class AddressTip {
 public:
    /// `owner` is the control that the tip belongs to. Throws RuntimeFailure (Platform).
    explicit AddressTip(HWND owner);

    /// Shows the start of `address` below a point of the screen.
    void show(std::string_view address, POINT screen);
    void hide() noexcept;

 private:
    HWND owner_;
    std::wstring text_;
    Owned<HWND, &DestroyWindow> window_;
};

}  // namespace velvox
