#include "base/open_address_win32.h"

#include <shellapi.h>
#include <shlwapi.h>

#include "base/owned_win32.h"
#include "base/system_win32.h"
#include "base/web_address.h"

namespace velvox {
namespace {

// Characters of an escaped address. Wine's shell writes the browser's command with the address into
// a buffer of 1,024 characters without checking the length, and the shell of Windows opens at most
// 2,083.
constexpr std::size_t maxShellAddress = 500;

// The command line of the browser that is registered for the address's scheme.
std::wstring browserCommand(const std::wstring& address) {
    const std::wstring scheme = address.substr(0, address.find(L':'));
    constexpr ASSOCF protocol = 0x1000;  // includes the user's choice, from Windows 8 on
    for (const ASSOCF flags : {protocol, ASSOCF{0}}) {
        wchar_t command[1024];
        DWORD size = 1024;
        if (FAILED(AssocQueryStringW(flags, ASSOCSTR_COMMAND, scheme.c_str(), L"open", command,
                                     &size)))
            continue;
        std::wstring line = command;
        const auto place = line.find(L"%1");
        if (place == line.npos) return line + L" \"" + address + L'"';
        return line.replace(place, 2, address);
    }
    throwLastError("AssocQueryString");
}

void startBrowser(const std::wstring& address) {
    std::wstring command = browserCommand(address);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &process))
        throwLastError("CreateProcess");
    OwnedHandle(process.hThread);
    OwnedHandle(process.hProcess);
}

}  // namespace

void openAddress(HWND owner, std::string_view address) {
    if (!isWebAddress(address)) return;
    // The shell inserts the address unchanged between the quotation marks of the registered
    // command. A quotation mark in the address would end the argument and start the next one.
    const std::wstring escaped = widen(escapeForShell(address));
    if (escaped.size() > maxShellAddress) return startBrowser(escaped);
    ShellExecuteW(owner, L"open", escaped.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace velvox
