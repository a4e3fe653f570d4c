#include "app/window/message_pump_win32.h"

#include <utility>

#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

// Gives a flag a value until the end of the scope, however that is left.
class FlagScope {
 public:
    FlagScope(bool& flag, bool value) : flag_(flag), before_(std::exchange(flag, value)) {}
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { flag_ = before_; }

 private:
    bool& flag_;
    bool before_;
};

// Keys come first: Alt+F4 and Alt+Space turn into system commands.
constexpr struct {
    UINT first;
    UINT last;
} inputRanges[] = {
    {WM_KEYFIRST, WM_KEYLAST},
    {WM_MOUSEFIRST, WM_MOUSELAST},
    {WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK},
    {WM_NCMOUSELEAVE, WM_MOUSELEAVE},
    {WM_CONTEXTMENU, WM_CONTEXTMENU},
    {BM_CLICK, BM_CLICK},
    {WM_SYSCOMMAND, WM_SYSCOMMAND},
    {WM_CLOSE, WM_CLOSE},
};

}  // namespace

void MessagePump::dispatch(MSG& message) {
    const FlagScope ownTimer(ownTimer_, message.message == WM_TIMER);
    try {
        if (accepts && !accepts(message)) return;
        if (intercept && intercept(message)) return;
    } catch (...) {
        return reportCurrentFailure();
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

void MessagePump::tick(const std::function<void()>& handler) {
    const FlagScope foreign(inForeignTick_, !std::exchange(ownTimer_, false));
    handler();
}

int MessagePump::run() {
    MSG message;
    while (!quitting_) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == -1) throwLastError("GetMessage");
        if (got == 0)
            quit(static_cast<int>(message.wParam));
        else
            dispatch(message);
    }
    // Left in the queue, it would close the next message box at once.
    PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    return exitCode_;
}

void MessagePump::quit(int exitCode) {
    quitting_ = true;
    exitCode_ = exitCode;
    // A menu's loop ends by itself only. The other loops of the system end with this message, and
    // some of them, Wine's menus too, remove it.
    EndMenu();
    PostQuitMessage(exitCode);
}

void MessagePump::yield() {
    if (serving_ || inForeignTick_) return;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
        dispatch(message);
    }
}

void MessagePump::serveInput() {
    const FlagScope serving(serving_, true);
    MSG message;
    // WM_QUIT comes whatever the range.
    const auto dispatchAll = [&](UINT first, UINT last, UINT flags) {
        while (PeekMessageW(&message, nullptr, first, last, PM_REMOVE | flags)) {
            if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
            dispatch(message);
        }
    };
    for (const auto& [first, last] : inputRanges) dispatchAll(first, last, 0);
    dispatchAll(WM_PAINT, WM_PAINT, PM_QS_PAINT);
}

}  // namespace velvox
