// Helpers for tests of real windows: a form as their parent, handling of messages, a window's
// picture.
#pragma once

#include <functional>

#include "base/system_win32.h"
#include "base/window_win32.h"
#include "controlkit/virtual_dc_win32.h"

namespace velvox {

/// A topmost popup window on the screen.
class TestForm : public Window {
 public:
    explicit TestForm(const RECT& bounds) {
        create({.className = L"TestForm",
                .style = WS_POPUP | WS_VISIBLE,
                .extendedStyle = WS_EX_TOPMOST,
                .bounds = bounds});
    }
    ~TestForm() override { destroy(); }

 private:
    // Paints black behind its children.
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM) override {
        if (message != WM_PRINTCLIENT) return std::nullopt;
        RECT client{};
        GetClientRect(handle(), &client);
        fill(reinterpret_cast<HDC>(wParam), client, 0);
        return 0;
    }
};

/// Deadline in milliseconds for what happens at once on an idle machine.
constexpr DWORD patience = 30'000;

/// Dispatches messages until `done` returns true or the time is over. Returns whether `done` was
/// true.
inline bool pumpUntil(const std::function<bool()>& done, DWORD milliseconds = patience) {
    const DWORD start = GetTickCount();
    while (!done()) {
        const DWORD passed = GetTickCount() - start;
        if (passed >= milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - passed, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

/// Dispatches messages for a time.
inline void pumpFor(DWORD milliseconds) {
    pumpUntil([] { return false; }, milliseconds);
}

/// The picture of a window's client area that WM_PRINTCLIENT gives.
class ClientPrint {
 public:
    explicit ClientPrint(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        surface_.CreateMyDC(client.right, client.bottom);
        SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface_.hDC()), PRF_CLIENT);
    }
    Rgb at(int x, int y) const { return surface_.GetPixel(x, y); }

 private:
    clsVirtualDC surface_;
};

}  // namespace velvox
