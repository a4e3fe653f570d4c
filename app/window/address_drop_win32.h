#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

#include "base/com_win32.h"

namespace velvox {

/// The address in a data object, taken from a link, an Internet shortcut or a text. Empty if the
/// object has none of these.
std::string droppedText(IDataObject& data);

/// Accepts addresses that the user drops onto a window, while this object exists. A dropped file
/// must be an Internet shortcut.
class AddressDrop {
 public:
    /// `accepts` returns whether the window takes an address at that moment; `take` receives the
    /// dropped text. OLE must be initialised. Throws RuntimeFailure (Platform).
    AddressDrop(HWND window, std::function<bool()> accepts,
                std::function<void(std::string_view)> take);
    AddressDrop(const AddressDrop&) = delete;
    AddressDrop& operator=(const AddressDrop&) = delete;
    ~AddressDrop();

 private:
    HWND window_;
};

}  // namespace velvox
