#include "controlkit/focus_watch_win32.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/owned_win32.h"
#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

void unhook(HHOOK hook) noexcept {
    UnhookWindowsHookEx(hook);
}

/// One hook serves all watches.
struct Watches {
    Owned<HHOOK, &unhook> hook;
    std::vector<FocusWatch*> all;  // in order of creation: inner containers follow outer ones
};

Watches& watches() {
    static Watches instance;
    return instance;
}

}  // namespace

FocusWatch::FocusWatch(std::function<void(HWND)> moving) : moving_(std::move(moving)) {
    Watches& known = watches();
    known.all.push_back(this);
    if (known.hook) return;
    known.hook.reset(SetWindowsHookExW(WH_CBT, &FocusWatch::hook, nullptr, GetCurrentThreadId()));
    if (known.hook) return;
    known.all.pop_back();
    throwLastError("SetWindowsHookEx");
}

FocusWatch::~FocusWatch() {
    std::erase(watches().all, this);
    if (watches().all.empty()) watches().hook.reset();
}

LRESULT CALLBACK FocusWatch::hook(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code == HCBT_SETFOCUS && wParam) {
        try {
            const std::vector<FocusWatch*> notified = watches().all;
            for (auto watch = notified.rbegin(); watch != notified.rend(); ++watch) {
                if (!std::ranges::count(watches().all, *watch)) continue;
                const auto moving = (*watch)->moving_;
                moving(reinterpret_cast<HWND>(wParam));
            }
        } catch (...) {
            reportCurrentFailure();
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace velvox
