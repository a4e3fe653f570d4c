#include "app/net/internet_session_win32.h"

namespace velvox {
namespace {

inline void freeGlobal(wchar_t* text) noexcept {
    GlobalFree(text);
}
using GlobalText = Owned<wchar_t*, &freeGlobal>;

OwnedInternet open(DWORD access, const wchar_t* proxy = WINHTTP_NO_PROXY_NAME,
                   const wchar_t* bypass = WINHTTP_NO_PROXY_BYPASS) {
    // Sends no user agent, because servers do not require one.
    return OwnedInternet(WinHttpOpen(nullptr, access, proxy, bypass, WINHTTP_FLAG_ASYNC));
}

bool machineHasProxy() {
    WINHTTP_PROXY_INFO info{};
    if (!WinHttpGetDefaultProxyConfiguration(&info)) return false;
    const GlobalText proxy(info.lpszProxy);
    const GlobalText bypass(info.lpszProxyBypass);
    return info.dwAccessType == WINHTTP_ACCESS_TYPE_NAMED_PROXY;
}

// Uses the user's static proxy if there is one, else a proxy that is set for the whole machine
// (under Wine, the http_proxy variable), else automatic proxy settings, which exist since Windows
// 8.1.
OwnedInternet openWithUsersProxy() {
    WINHTTP_CURRENT_USER_IE_PROXY_CONFIG user{};
    if (WinHttpGetIEProxyConfigForCurrentUser(&user)) {
        const GlobalText script(user.lpszAutoConfigUrl);
        const GlobalText proxy(user.lpszProxy);
        const GlobalText bypass(user.lpszProxyBypass);
        if (proxy) return open(WINHTTP_ACCESS_TYPE_NAMED_PROXY, proxy.get(), bypass.get());
    }
    constexpr DWORD automaticProxy = 4;
    if (!machineHasProxy())
        if (OwnedInternet session = open(automaticProxy)) return session;
    return open(WINHTTP_ACCESS_TYPE_DEFAULT_PROXY);
}

}  // namespace

HINTERNET InternetSession::handle() {
    if (!session_) session_ = openWithUsersProxy();
    return session_.get();
}

}  // namespace velvox
