#include "app/message_pump_win32.h"

#include "base/system_win32.h"

namespace velvox {

void MessagePump::dispatch(MSG& message) {
    if (intercept && intercept(message)) return;
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

int MessagePump::run() {
    MSG message;
    for (;;) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) return static_cast<int>(message.wParam);
        if (got == -1) throwLastError("GetMessage");
        dispatch(message);
    }
}

void MessagePump::yield() {
    if (elsewhere && elsewhere()) return;
    ++depth_;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        dispatch(message);
    }
    --depth_;
}

}  // namespace velvox
