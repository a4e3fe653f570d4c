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

// Messages that serveInput handles. Keys come first, because Alt+F4 and Alt+Space turn into system
// commands.
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

// A window of another library may never validate itself, so Windows would send it WM_PAINT without
// end.
constexpr int maxPaints = 100;

// Ends the modal loop of a menu or of a window move by keyboard.
void leaveModalLoop() noexcept {
    EndMenu();
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &info)) return;
    // Under Wine, EndMenu does not end the menu of a window without a menu bar, and WM_CANCELMODE
    // does not end a move by keyboard.
    if (info.hwndMenuOwner) PostMessageW(info.hwndMenuOwner, WM_CANCELMODE, 0, 0);
    // If a menu is open during a move, hwndMoveSize is null: use the active window.
    const HWND moved = info.hwndMoveSize ? info.hwndMoveSize : info.hwndActive;
    if (moved) PostMessageW(moved, WM_LBUTTONUP, 0, 0);
}

// Runs a timer in the modal loop of a menu or of a window move by keyboard. Ends that loop once
// `isOver` returns true.
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

    static inline ModalLoopTimer* current = nullptr;  // the innermost timer of the UI thread

    const std::function<bool()>& isOver_;
    ModalLoopTimer* outer_;
    UINT_PTR id_;
};

}  // namespace

void MessagePump::dispatch(MSG& message) {
    const ValueScope current(currentMessage_, ++messages_);
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
    const ValueScope noYield(mayYield_, false);
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
    // A WM_QUIT left in the queue would close the next message box at once.
    PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    return exitCode_;
}

void MessagePump::quit(int exitCode) {
    quitting_ = true;
    exitCode_ = exitCode;
    // No message ends the loop of a menu. The system's other modal loops end with WM_QUIT, but some
    // of them, as well as Wine's menus, remove WM_QUIT from the queue.
    leaveModalLoop();
    PostQuitMessage(exitCode);
}

void MessagePump::yield() {
    if (!mayYield_) return;
    const std::function<bool()> soon = [] { return true; };
    std::optional<ModalLoopTimer> timer;
    MSG message;
    int paints = 0;
    while (paints < maxPaints && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_PAINT) ++paints;
        if (running_ && !timer) timer.emplace(soon);
        if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
        dispatch(message);
    }
}

void MessagePump::serveInput(const std::function<bool()>& isOver) {
    const ValueScope noYield(mayYield_, false);
    const ModalLoopTimer timer(isOver);
    MSG message;
    // PeekMessage returns WM_QUIT even if the filter excludes it.
    const auto dispatchAll = [&](UINT first, UINT last, UINT flags, int most) {
        while (most-- > 0 && PeekMessageW(&message, nullptr, first, last, PM_REMOVE | flags)) {
            if (message.message == WM_QUIT) return quit(static_cast<int>(message.wParam));
            dispatch(message);
        }
    };
    for (const auto& [first, last] : inputRanges) dispatchAll(first, last, 0, INT_MAX);
    dispatchAll(WM_PAINT, WM_PAINT, PM_QS_PAINT, maxPaints);
}

}  // namespace velvox
