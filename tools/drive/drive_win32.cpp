// Reads and controls the windows of another program in Wine, for shell scripts and end-to-end
// tests. Each line on stdin is a request that gets one line on stdout, "ok ..." or "fail ...".
// `drive.exe COMMAND ARGS` is a single request. README.md lists the commands. Pointer, keys and
// clipboard are simulated outside Wine (xdotool, xclip).

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/owned_win32.h"
#include "base/system_win32.h"
#include "tools/drive/line.h"
#include "tools/drive/look_win32.h"
#include "tools/drive/objects_win32.h"
#include "tools/drive/window_path_win32.h"

namespace velvox::drive {
namespace {

using Words = std::vector<std::string>;

constexpr DWORD kPollMs = 10;
constexpr size_t kQuotedLength = 300;  // maximum length of a text that an answer quotes

long number(const std::string& word) {
    size_t used = 0;
    const long long value = std::stoll(word, &used, 0);
    if (used != word.size()) throw std::runtime_error("not a number: " + word);
    return static_cast<long>(value);
}

std::string hex(HWND window) {
    char text[20];
    std::snprintf(text, sizeof text, "0x%lx",
                  static_cast<unsigned long>(reinterpret_cast<UINT_PTR>(window)));
    return text;
}

HWND window(const std::string& path) {
    const HWND found = findWindow(path);
    if (!found) throw std::runtime_error("no window " + path);
    return found;
}

// Polls until the condition holds; false at the deadline.
bool waitFor(const std::string& milliseconds, const std::function<bool()>& holds) {
    const auto deadline =
        std::chrono::steady_clock::now() + std::chrono::milliseconds(number(milliseconds));
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= deadline) return false;
        Sleep(kPollMs);
    }
    return true;
}

bool shows(const std::string& path) {
    const HWND found = findWindow(path);
    return found && IsWindowVisible(found);
}

std::string wait(const Words& w) {
    if (!waitFor(w[2], [&] { return shows(w[1]); })) throw std::runtime_error("no visible " + w[1]);
    return hex(window(w[1]));
}

std::string gone(const Words& w) {
    if (!waitFor(w[2], [&] { return !shows(w[1]); })) throw std::runtime_error(w[1] + " stays");
    return "";
}

std::string until(const Words& w) {
    if (w[2] != "contains" && w[2] != "equals") throw std::runtime_error("contains or equals?");
    std::string text;
    const auto holds = [&] {
        const HWND found = findWindow(w[1]);
        if (!found) return false;
        text = windowText(found);
        return w[2] == "equals" ? text == w[3] : text.find(w[3]) != text.npos;
    };
    if (!waitFor(w[4], holds))
        throw std::runtime_error("text is: " + text.substr(0, kQuotedLength));
    return "";
}

std::string rect(const Words& w) {
    RECT r{};
    GetWindowRect(window(w[1]), &r);
    return std::to_string(r.left) + ' ' + std::to_string(r.top) + ' ' +
           std::to_string(r.right - r.left) + ' ' + std::to_string(r.bottom - r.top);
}

GUITHREADINFO threadOf(HWND any) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(any, nullptr), &info);
    return info;
}

std::string named(HWND found) {
    return found ? hex(found) + ' ' + windowClass(found) : "none";
}

std::string state(const Words& w) {
    const HWND found = window(w[1]);
    const auto flag = [](const char* name, bool value) {
        return std::string(name) + (value ? "=1" : "=0");
    };
    return flag("visible", IsWindowVisible(found)) + flag(" enabled", IsWindowEnabled(found)) +
           flag(" focus", threadOf(found).hwndFocus == found);
}

std::string style(const Words& w) {
    const HWND found = window(w[1]);
    char text[60];
    std::snprintf(text, sizeof text, "style=0x%08lx exstyle=0x%08lx",
                  static_cast<unsigned long>(GetWindowLongW(found, GWL_STYLE)),
                  static_cast<unsigned long>(GetWindowLongW(found, GWL_EXSTYLE)));
    return text;
}

std::string describe(HWND found) {
    std::string text = windowText(found);
    if (text.size() > kQuotedLength) text.resize(kQuotedLength);
    return hex(found) + ' ' + windowClass(found) + " \"" + text + '"' +
           (IsWindowVisible(found) ? "" : " hidden") + (IsWindowEnabled(found) ? "" : " disabled");
}

__attribute__((force_align_arg_pointer)) BOOL CALLBACK append(HWND child, LPARAM text) noexcept {
    try {
        *reinterpret_cast<std::string*>(text) += "\n" + describe(child);
    } catch (const std::exception&) {  // a window that was destroyed meanwhile is left out
    }
    return TRUE;
}

__attribute__((force_align_arg_pointer)) BOOL CALLBACK collect(HWND top, LPARAM list) noexcept {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(top);
    return TRUE;
}

std::string tree(const Words& w) {
    const HWND found = window(w[1]);
    std::string text = describe(found);
    EnumChildWindows(found, append, reinterpret_cast<LPARAM>(&text));
    return text;
}

// The visible top-level windows of a class, a line each.
std::string tops(const Words& w) {
    std::vector<HWND> found;
    EnumWindows(collect, reinterpret_cast<LPARAM>(&found));
    std::string text;
    for (const HWND top : found) {
        if (!IsWindowVisible(top) || windowClass(top) != w[1]) continue;
        text += (text.empty() ? "" : "\n") + hex(top);
    }
    return text;
}

std::string setText(const Words& w) {
    const std::wstring text = widen(w[2]);
    ask(window(w[1]), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    return "";
}

std::string place(const Words& w) {
    SetWindowPos(window(w[1]), nullptr, static_cast<int>(number(w[2])),
                 static_cast<int>(number(w[3])), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return "";
}

std::string post(const Words& w) {
    if (!PostMessageW(window(w[1]), static_cast<UINT>(number(w[2])),
                      static_cast<WPARAM>(number(w[3])), number(w[4]))) {
        throw std::runtime_error("not posted, error " + std::to_string(GetLastError()));
    }
    return "";
}

std::string send(const Words& w) {
    return std::to_string(ask(window(w[1]), static_cast<UINT>(number(w[2])),
                              static_cast<WPARAM>(number(w[3])), number(w[4])));
}

// Returns the milliseconds until the window's thread answers an empty message.
std::string ping(const Words& w) {
    const HWND found = window(w[1]);
    const auto start = std::chrono::steady_clock::now();
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutW(found, WM_NULL, 0, 0, SMTO_NORMAL, static_cast<UINT>(number(w[2])),
                             &answer)) {
        throw std::runtime_error("no answer");
    }
    const auto spent = std::chrono::steady_clock::now() - start;
    return std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(spent).count());
}

std::string items(const Words& w) {
    const HWND list = window(w[1]);
    std::string text;
    const LRESULT count = ask(list, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const auto index = static_cast<WPARAM>(i);
        std::wstring item(static_cast<size_t>(ask(list, CB_GETLBTEXTLEN, index, 0)) + 1, L'\0');
        ask(list, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(item.data()));
        item.pop_back();
        text += (i ? "\n" : "") + narrow(item);
    }
    return text;
}

std::string box(const Words& w) {
    if (!waitFor(w[1], [] { return shows("#32770"); })) throw std::runtime_error("no message box");
    const HWND found = window("#32770");
    // The text of a message box is the static control with the id -1.
    const HWND label = GetDlgItem(found, 0xFFFF);
    return windowText(found) + '\n' + (label ? windowText(label) : "");
}

std::string close(const Words& w) {
    return post({w[0], w[1], std::to_string(WM_CLOSE), "0", "0"});
}

std::string objects(const Words& w) {
    DWORD id = 0;
    GetWindowThreadProcessId(window(w[1]), &id);
    const OwnedHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, id));
    if (!process) throw std::runtime_error("process does not open");
    const ObjectCounts counts = objectsOf(process.get());
    return "gdi=" + std::to_string(counts.gdi) + " user=" + std::to_string(counts.user);
}

struct Command {
    size_t arguments;
    std::function<std::string(const Words&)> run;
};

const std::map<std::string, Command>& commands() {
    static const std::map<std::string, Command> table = {
        {"wait", {2, wait}},
        {"gone", {2, gone}},
        {"until", {4, until}},
        {"find", {1, [](const Words& w) { return hex(window(w[1])); }}},
        {"text", {1, [](const Words& w) { return windowText(window(w[1])); }}},
        {"class", {1, [](const Words& w) { return windowClass(window(w[1])); }}},
        {"focus", {1, [](const Words& w) { return named(threadOf(window(w[1])).hwndFocus); }}},
        {"capture", {1, [](const Words& w) { return named(threadOf(window(w[1])).hwndCapture); }}},
        {"rect", {1, rect}},
        {"state", {1, state}},
        {"style", {1, style}},
        {"tree", {1, tree}},
        {"tops", {1, tops}},
        {"look", {1, [](const Words& w) { return look(window(w[1])); }}},
        {"place", {3, place}},
        {"set", {2, setText}},
        {"post", {4, post}},
        {"send", {4, send}},
        {"ping", {2, ping}},
        {"items", {1, items}},
        {"box", {1, box}},
        {"close", {1, close}},
        {"objects", {1, objects}},
    };
    return table;
}

// Executes a request and prints its answer in one line. Returns true for "ok".
bool answer(const std::function<Words()>& request) {
    std::string line;
    bool ok = false;
    try {
        const Words w = request();
        const auto found = w.empty() ? commands().end() : commands().find(w[0]);
        if (found == commands().end()) throw std::runtime_error("unknown command");
        if (w.size() != found->second.arguments + 1) {
            throw std::runtime_error(w[0] + " takes " + std::to_string(found->second.arguments) +
                                     " arguments");
        }
        const std::string text = escaped(found->second.run(w));
        line = text.empty() ? "ok" : "ok " + text;
        ok = true;
    } catch (const std::exception& e) {
        line = std::string("fail ") + escaped(e.what());
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
    return ok;
}

}  // namespace
}  // namespace velvox::drive

int wmain(int count, wchar_t** arguments) {
    using namespace velvox::drive;
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    if (count > 1) {
        const auto request = [&] {
            Words w;
            for (int i = 1; i < count; ++i) w.push_back(velvox::narrow(arguments[i]));
            return w;
        };
        return answer(request) ? 0 : 1;
    }
    std::string line;
    while (std::getline(std::cin, line) && line != "quit") {
        answer([&] { return words(line); });
    }
    return 0;
}
