// Reads and controls the windows of another program in Wine, for shell scripts and end-to-end
// tests. README.md lists the requests. Pointer, keys and clipboard are simulated outside Wine
// (xdotool, xclip).

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/owned_win32.h"
#include "base/system_win32.h"
#include "tools/drive/characters.h"
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
    if (!window) return "none";
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

std::string state(const Words& w) {
    const HWND found = window(w[1]);
    const auto flag = [](const char* name, bool value) {
        return std::string(name) + (value ? "=1" : "=0");
    };
    return flag("visible", IsWindowVisible(found)) + flag(" enabled", IsWindowEnabled(found)) +
           flag(" minimised", IsIconic(found));
}

std::string describe(HWND found) {
    std::string text = windowText(found);
    if (text.size() > kQuotedLength) text.resize(kQuotedLength);
    return hex(found) + ' ' + windowClass(found) + " \"" + text + '"' +
           (IsWindowVisible(found) ? "" : " hidden") + (IsWindowEnabled(found) ? "" : " disabled");
}

std::string tree(const Words& w) {
    const HWND found = window(w[1]);
    std::string text = describe(found);
    for (const HWND child : windowsBelow(found)) text += '\n' + describe(child);
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

std::string box(const Words& w) {
    if (!waitFor(w[1], [] { return shows("#32770"); })) throw std::runtime_error("no message box");
    const HWND found = window("#32770");
    // The text of a message box is the static control with the id -1.
    const HWND label = GetDlgItem(found, 0xFFFF);
    return windowText(found) + '\n' + (label ? windowText(label) : "");
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
        {"focus", {1, [](const Words& w) { return hex(threadOf(window(w[1])).hwndFocus); }}},
        {"capture", {1, [](const Words& w) { return hex(threadOf(window(w[1])).hwndCapture); }}},
        {"rect", {1, [](const Words& w) { return windowBounds(window(w[1])); }}},
        {"state", {1, state}},
        {"tree", {1, tree}},
        {"look", {1, [](const Words& w) { return look(window(w[1])); }}},
        {"place", {3, place}},
        {"set", {2, setText}},
        {"post", {4, post}},
        {"send", {4, send}},
        {"ping", {2, ping}},
        {"box", {1, box}},
        {"close",
         {1,
          [](const Words& w) {
              return post({w[0], w[1], "0x10", "0", "0"});
          }}},
        {"objects", {1, objects}},
    };
    return table;
}

// Executes a request. Returns the answer: "ok", "ok RESULT" or "fail REASON".
std::string answer(const Words& w) try {
    const auto found = w.empty() ? commands().end() : commands().find(w[0]);
    if (found == commands().end()) throw std::runtime_error("unknown command");
    if (w.size() != found->second.arguments + 1)
        throw std::runtime_error(w[0] + " takes " + std::to_string(found->second.arguments) +
                                 " arguments");
    const std::string text = found->second.run(w);
    return text.empty() ? "ok" : "ok " + text;
} catch (const std::exception& e) {
    return std::string("fail ") + e.what();
}

}  // namespace
}  // namespace velvox::drive

int wmain(int count, wchar_t** arguments) {
    using namespace velvox::drive;
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    if (count > 1) {
        Words w;
        for (int i = 1; i < count; ++i) w.push_back(velvox::narrow(arguments[i]));
        const std::string text = answer(w);
        std::cout << text << std::endl;
        return text.starts_with("ok") ? 0 : 1;
    }
    for (std::string request; std::getline(std::cin, request, endOfText);) {
        Words w;
        std::istringstream words(request);
        for (std::string word; std::getline(words, word, endOfWord);) w.push_back(word);
        std::cout << answer(w) << endOfText << std::flush;
    }
    return 0;
}
