#pragma once

#include <windows.h>

#include <winhttp.h>

#include "base/owned_win32.h"

namespace velvox {

inline void closeInternet(HINTERNET handle) noexcept {
    WinHttpCloseHandle(handle);
}
using OwnedInternet = Owned<HINTERNET, &closeInternet>;

/// The WinHTTP session of all transfers, asynchronous and with the user's proxy settings.
class InternetSession {
 public:
    /// Opens the session at the first call, which keeps WinHTTP out of the program's start. Null
    /// on failure, with the thread's last error set.
    HINTERNET handle();

 private:
    OwnedInternet session_;
};

}  // namespace velvox
