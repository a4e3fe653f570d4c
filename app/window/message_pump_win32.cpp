#include "app/window/message_pump_win32.h"

#include <climits>
#include <optional>
#include <utility>

#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

// Sets a variable for the length of a scope.
template <class T>
class ValueScope {
 public:
    ValueScope(T& variable, T value)
        : variable_(variable), before_(std::exchange(variable, value)) {}
    ValueScope(const ValueScope&) = delete;
    ValueScope& operator=(const ValueScope&) = delete;
    ~ValueScope() { variable_ = before_; }

 private:
    T& variable_;
    T before_;
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

// Ends the loop of a menu or of a move by keys.
void leaveModalLoop() noexcept {
    EndMenu();
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &info)) return;
    // Wine ends neither the menu mode of a window without a menu bar by EndMenu nor a move by
    // WM_CANCELMODE.
    if (info.hwndMenuOwner) PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
    // A menu inside a move hides the move from this.
    const HWND moved = info.hwndMoveSize ? info.hwndMoveSize : info.hwndActive;
    if (moved) PostMessageW(moved, WM_LBUTTONUP, 0, 0);
}

// Ticks in the loop of a menu or of a move by keys, and ends that loop when the caller's wait is
// over.
class ModalLoopTimer {
 public:
    explicit ModalLoopTimer(const std::function<bool()>& isOver)
        : isOver_(isOver),
          outer_(std::exchange(current, this)),
          id_(SetTimer(nullptr, 0, periodMs, &ModalLoopTimer::tick)) {}
    ModalLoopTimer(const ModalLoopTimer&) = delete;
    ModalLoopTimer& operator=(const ModalLoopTimer&) = delete;
    ~ModalLoopTimer() {
        KillTimer(nullptr, id_);
        current = outer_;
    }

 private:
    static constexpr UINT periodMs = 100;

    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) noexcept {
        try {
            if (current && current->isOver_()) leaveModalLoop();
        } catch (...) {
            reportCurrentFailure();
        }
    }

    static inline ModalLoopTimer* current = nullptr;  // of the UI thread

    const std::function<bool()>& isOver_;
    ModalLoopTimer* outer_;
    UINT_PTR id_;
};

}  // namespace

void MessagePump::dispatch(MSG& message) {
    const ValueScope current(currentMessage_, ++messages_);
    const ValueScope ownTimer(ownTimer_, message.message == WM_TIMER);
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
    const ValueScope foreign(inForeignTick_, !std::exchange(ownTimer_, false));
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
    // A menu's loop cannot be ended by a message. The other loops of the system end with this
    // message, and some of them, Wine's menus too, remove it.
    leaveModalLoop();
    PostQuitMessage(exitCode);
}

void MessagePump::yield() {
    if (serving_ || inForeignTick_) return;
    const std::function<bool()> soon = [] { return true; };
    std::optional<ModalLoopTimer> timer;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (running_ && !timer) timer.emplace(soon);
        if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
        dispatch(message);
    }
}

void MessagePump::serveInput(const std::function<bool()>& isOver) {
    const ValueScope serving(serving_, true);
    const ModalLoopTimer timer(isOver);
    MSG message;
    // WM_QUIT is retrieved for any filter.
    const auto dispatchAll = [&](UINT first, UINT last, UINT flags, int most) {
        while (most-- > 0 && PeekMessageW(&message, nullptr, first, last, PM_REMOVE | flags)) {
            if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
            dispatch(message);
        }
    };
    for (const auto& [first, last] : inputRanges) dispatchAll(first, last, 0, INT_MAX);
    // A window that never validates itself, as one of another library may, is sent WM_PAINT without
    // end.
    constexpr int maxPaints = 100;
    dispatchAll(WM_PAINT, WM_PAINT, PM_QS_PAINT, maxPaints);
}

}  // namespace velvox
