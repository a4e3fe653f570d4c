#include "base/open_address_win32.h"

#include <shellapi.h>

#include "base/system_win32.h"
#include "base/web_address.h"

namespace velvox {

void openAddress(HWND owner, std::string_view address) {
    if (!isWebAddress(address)) return;
    // The shell copies the address as it is between the quotation marks of the registered command:
    // a quotation mark in it would end the argument and start the next.
    const std::wstring escaped = widen(escapeForShell(address));
    ShellExecuteW(owner, L"open", escaped.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace velvox
