#include "tools/drive/window_path_win32.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <vector>

#include "base/system_win32.h"

namespace velvox::drive {
namespace {

constexpr UINT kAnswerMs = 20000;

struct Segment {
    std::optional<HWND> handle;
    std::string className;
    std::optional<std::string> text;
    std::optional<size_t> index;
    std::optional<int> controlId;
};

Segment parsed(const std::string& part) {
    Segment segment;
    if (part.starts_with("0x")) {
        segment.handle = reinterpret_cast<HWND>(std::stoul(part, nullptr, 16));
        return segment;
    }
    if (part.starts_with("@")) {
        segment.controlId = std::stoi(part.substr(1));
        return segment;
    }
    // The search starts at the second character, because the class name of dialogs starts with "#".
    const size_t mark = part.find_first_of("=#", 1);
    segment.className = part.substr(0, mark);
    if (segment.className == "*") segment.className.clear();
    if (mark != part.npos && part[mark] == '=') {
        segment.text = part.substr(mark + 1);
    } else if (mark != part.npos) {
        segment.index = std::stoul(part.substr(mark + 1));
    }
    return segment;
}

std::vector<Segment> segments(const std::string& path) {
    std::vector<std::string> parts(1);
    for (const char c : path)
        if (c == '/')
            parts.emplace_back();
        else
            parts.back() += c;
    std::vector<Segment> result;
    for (const std::string& part : parts) {
        try {
            result.push_back(parsed(part));
        } catch (const std::logic_error&) {
            throw std::runtime_error("malformed path segment " + part);
        }
    }
    return result;
}

__attribute__((force_align_arg_pointer)) BOOL CALLBACK collect(HWND window, LPARAM list) noexcept {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

std::vector<HWND> candidates(HWND parent) {
    std::vector<HWND> result;
    const auto list = reinterpret_cast<LPARAM>(&result);
    if (parent) {
        EnumChildWindows(parent, collect, list);
    } else {
        EnumWindows(collect, list);
    }
    return result;
}

bool fits(HWND window, const Segment& segment) {
    if (segment.handle) return window == *segment.handle;
    if (segment.controlId) return GetDlgCtrlID(window) == *segment.controlId;
    if (!segment.className.empty() &&
        lstrcmpiW(widen(windowClass(window)).c_str(), widen(segment.className).c_str()) != 0) {
        return false;
    }
    return !segment.text || windowText(window) == *segment.text;
}

HWND best(HWND parent, const Segment& segment) {
    if (segment.handle && IsWindow(*segment.handle)) return *segment.handle;
    std::vector<HWND> found = candidates(parent);
    std::erase_if(found, [&](HWND window) { return !fits(window, segment); });
    if (segment.index) return *segment.index < found.size() ? found[*segment.index] : nullptr;
    const auto visible = std::find_if(found.begin(), found.end(), IsWindowVisible);
    if (visible != found.end()) return *visible;
    return found.empty() ? nullptr : found.front();
}

}  // namespace

HWND findWindow(const std::string& path) {
    HWND window = nullptr;
    for (const Segment& segment : segments(path)) {
        window = best(window, segment);
        if (!window) return nullptr;
    }
    return window;
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
