// Addresses that are dropped onto the window.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include "base/com_win32.h"

namespace velvox {

/// The address in a data object: from a link, an Internet shortcut or a text. Empty when it
/// has none of them.
std::string droppedText(IDataObject& data);

/// Makes a window take dropped addresses for as long as this object lives. A file that is dropped
/// must be an Internet shortcut.
class AddressDrop {
 public:
    /// `accepts` returns whether the window takes an address now, `take` gets what was dropped.
    /// Needs OLE. Throws RuntimeFailure (Platform).
    AddressDrop(HWND window, std::function<bool()> accepts,
                std::function<void(std::string_view)> take);
    AddressDrop(const AddressDrop&) = delete;
    AddressDrop& operator=(const AddressDrop&) = delete;
    ~AddressDrop();

 private:
    HWND window_;
};

}  // namespace velvox
