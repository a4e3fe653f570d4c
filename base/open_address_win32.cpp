#include "base/open_address_win32.h"

#include <shellapi.h>

#include "base/system_win32.h"
#include "base/web_address.h"

namespace velvox {

void openAddress(HWND owner, std::string_view address) {
    if (!isWebAddress(address)) return;
    // The shell inserts the address unchanged between the quotation marks of the registered
    // command. A quotation mark in the address would end the argument and start the next one.
    const std::wstring escaped = widen(escapeForShell(address));
    ShellExecuteW(owner, L"open", escaped.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace velvox
