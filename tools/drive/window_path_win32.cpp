#include "tools/drive/window_path_win32.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "base/system_win32.h"

namespace velvox::drive {
namespace {

constexpr UINT kAnswerMs = 20000;

__attribute__((force_align_arg_pointer)) BOOL CALLBACK collect(HWND window, LPARAM list) noexcept {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool fits(HWND window, const std::string& segment) {
    if (segment.starts_with("@")) return GetDlgCtrlID(window) == std::stoi(segment.substr(1));
    const auto mark = segment.find('=');
    const std::string name = segment.substr(0, mark);
    if (name != "*" && lstrcmpiA(windowClass(window).c_str(), name.c_str()) != 0) return false;
    return mark == segment.npos || windowText(window) == segment.substr(mark + 1);
}

HWND best(HWND parent, const std::string& segment) {
    if (segment.starts_with("0x")) {
        const auto window = reinterpret_cast<HWND>(std::stoul(segment, nullptr, 16));
        return IsWindow(window) ? window : nullptr;
    }
    std::vector<HWND> found = windowsBelow(parent);
    std::erase_if(found, [&](HWND window) { return !fits(window, segment); });
    const auto visible = std::find_if(found.begin(), found.end(), IsWindowVisible);
    if (visible != found.end()) return *visible;
    return found.empty() ? nullptr : found.front();
}

}  // namespace

HWND findWindow(const std::string& path) {
    HWND window = nullptr;
    std::istringstream segments(path);
    for (std::string segment; std::getline(segments, segment, '/');) {
        window = best(window, segment);
        if (!window) return nullptr;
    }
    return window;
}

std::vector<HWND> windowsBelow(HWND parent) {
    std::vector<HWND> windows;
    const auto list = reinterpret_cast<LPARAM>(&windows);
    parent ? EnumChildWindows(parent, collect, list) : EnumWindows(collect, list);
    return windows;
}

std::string windowBounds(HWND window) {
    RECT r{};
    GetWindowRect(window, &r);
    return std::to_string(r.left) + ' ' + std::to_string(r.top) + ' ' +
           std::to_string(r.right - r.left) + ' ' + std::to_string(r.bottom - r.top);
}

GUITHREADINFO threadOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info;
}

LRESULT ask(HWND window, UINT message, WPARAM w, LPARAM l) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kAnswerMs, &answer)) {
        throw std::runtime_error("the window does not answer");
    }
    return static_cast<LRESULT>(answer);
}

std::string windowText(HWND window) {
    // The text may grow between the two messages: it is complete only if it leaves room in the
    // buffer.
    for (size_t room = 256;; room *= 2) {
        room = std::max(room, static_cast<size_t>(ask(window, WM_GETTEXTLENGTH, 0, 0)) + 2);
        std::wstring text(room, L'\0');
        const auto buffer = reinterpret_cast<LPARAM>(text.data());
        text.resize(static_cast<size_t>(ask(window, WM_GETTEXT, room, buffer)));
        if (text.size() + 1 < room) return narrow(text);
    }
}

std::string windowClass(HWND window) {
    wchar_t name[256] = L"";
    GetClassNameW(window, name, 256);
    return narrow(name);
}

}  // namespace velvox::drive
