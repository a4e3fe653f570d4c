#pragma once

#include <windows.h>

#include <winhttp.h>

#include "base/owned_win32.h"

namespace velvox {

inline void closeInternet(HINTERNET handle) noexcept {
    WinHttpCloseHandle(handle);
}
using OwnedInternet = Owned<HINTERNET, &closeInternet>;

/// The WinHTTP session that all transfers share. It is asynchronous and uses the user's proxy
/// settings.
class InternetSession {
 public:
    /// Opens the session on the first call, so that WinHTTP is not loaded at the program's start.
    /// Returns null on failure, with the thread's last error set.
    HINTERNET handle();

 private:
    OwnedInternet session_;
};

}  // namespace velvox
