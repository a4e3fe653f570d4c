#pragma once

#include <windows.h>

#include <winhttp.h>

#include "base/owned_win32.h"

namespace velvox {

inline void closeInternet(HINTERNET handle) noexcept {
    WinHttpCloseHandle(handle);
}
using OwnedInternet = Owned<HINTERNET, &closeInternet>;

/// An asynchronous session that goes through the proxy the system is set to; empty on failure,
/// with the thread's last error set.
OwnedInternet openInternetSession();

}  // namespace velvox
