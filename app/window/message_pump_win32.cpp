#include "app/window/message_pump_win32.h"

#include <utility>

#include "base/system_win32.h"

namespace velvox {

void MessagePump::dispatch(MSG& message) {
    ownTimer_ = message.message == WM_TIMER;
    if (!intercept || !intercept(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    ownTimer_ = false;
}

void MessagePump::tick(const std::function<void()>& handler) {
    const struct Restored {
        bool& value;
        bool before;
        ~Restored() { value = before; }
    } restored{inForeignTick_, inForeignTick_};
    inForeignTick_ = !std::exchange(ownTimer_, false);
    handler();
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
    if (inForeignTick_) return;
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
