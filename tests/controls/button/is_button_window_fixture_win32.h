// A push button's window on a form, with fakes of the system services. Tests drive the window with
// words that stand for messages.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "base/system_win32.h"
#include "controls/button/is_button_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {

inline constexpr LPARAM inside = MAKELPARAM(5, 5);
inline constexpr LPARAM outside = MAKELPARAM(-20, 5);
inline constexpr LPARAM held = 1 << 30;  // a key that repeats
inline constexpr LPARAM plain = 0;

// The message of each word. A word with several messages has several rows.
inline constexpr struct {
    std::string_view word;
    UINT message;
    WPARAM key;
    LPARAM at;
} steps[] = {
    {"enter", WM_MOUSEMOVE, 0, inside},         {"drag-off", WM_MOUSEMOVE, 0, outside},
    {"leave", WM_MOUSELEAVE, 0, plain},         {"press", WM_LBUTTONDOWN, 0, inside},
    {"double", WM_LBUTTONDBLCLK, 0, inside},    {"release", WM_LBUTTONUP, 0, inside},
    {"release-off", WM_LBUTTONUP, 0, outside},  {"right", WM_RBUTTONDOWN, 0, inside},
    {"right", WM_RBUTTONUP, 0, inside},         {"by-program", BM_CLICK, 0, plain},
    {"theme", WM_THEMECHANGED, 0, plain},       {"colours", WM_SYSCOLORCHANGE, 0, plain},
    {"space", WM_KEYDOWN, VK_SPACE, plain},     {"space", WM_CHAR, VK_SPACE, plain},
    {"held-space", WM_KEYDOWN, VK_SPACE, held}, {"held-space", WM_CHAR, VK_SPACE, held},
    {"space-up", WM_KEYUP, VK_SPACE, plain},    {"enter-key", WM_KEYDOWN, VK_RETURN, plain},
    {"enter-key", WM_CHAR, VK_RETURN, plain},   {"held-enter", WM_KEYDOWN, VK_RETURN, held},
    {"letter", WM_KEYDOWN, 'A', plain},         {"letter", WM_CHAR, 'A', plain}};

inline int leaveRequests = 0;
inline BOOL WINAPI __attribute__((force_align_arg_pointer)) trackStandIn(LPTRACKMOUSEEVENT event) {
    EXPECT_EQ(event->dwFlags, static_cast<DWORD>(TME_LEAVE));
    ++leaveRequests;
    return TRUE;
}

struct FakeProcedures : ProcedureFinder {
    FARPROC find(const char* library, const char* procedure) override {
        asked.push_back(std::string(library) + "." + procedure);
        if (present.count(asked.back()) == 0) return nullptr;
        return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&trackStandIn));
    }
    std::set<std::string> present{"User32.TrackMouseEvent", "Comctl32._TrackMouseEvent"};
    std::vector<std::string> asked;
};

struct RefusingThemes : ThemeLibrary {
    bool drawPushButton(HWND, HDC, int state, const RECT&) override {
        lastState = state;
        ++asked;
        return false;
    }
    int asked = 0;
    int lastState = 0;
};

struct RecordedTips : ToolTipSystem {
    HWND create(DWORD style, HWND owner) override {
        log << "create " << style << ';';
        return owner;
    }
    void send(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) override {
        log << message << ' ' << wParam;
        if (message == TTM_ADDTOOLA) {
            const auto* tool = reinterpret_cast<const TTTOOLINFOA*>(lParam);
            EXPECT_EQ(tool->hwnd, owner);
            log << " flags " << tool->uFlags << ' ' << tool->lpszText << ' ' << tool->rect.right
                << 'x' << tool->rect.bottom;
        }
        if (message == TTM_SETTITLEA) log << ' ' << reinterpret_cast<char*>(lParam);
        log << ';';
    }
    void destroy(HWND) override { log << "destroy;"; }
    std::ostringstream log;
};

class IsButtonWindowTest : public testing::Test {
 protected:
    IsButtonWindowTest() {
        makeModel();
        setFailureReporter([this](std::string_view text) { reported += text; });
    }
    ~IsButtonWindowTest() override { setFailureReporter({}); }

    void makeModel() {
        window.reset();
        model = std::make_unique<isButton>("b", colours);
        model->Move({150, 150, 1200, 450});
        model->Click = [this] { events += 'C'; };
        model->MouseEnter = [this] { events += 'E'; };
        model->MouseLeave = [this] { events += 'L'; };
    }
    void open() {
        window.reset();
        window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                                  ButtonServices{procedures, themes, tips});
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(window->handle(), message, wParam, lParam);
    }
    // Runs a sequence of words, each of which stands for messages or for one of the `happenings`.
    void run(const std::string& script) {
        const HWND button = window->handle();
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            if (happenings.contains(word)) happenings.at(word)();
            for (const auto& [name, message, key, at] : steps)
                if (name == word) SendMessageW(button, message, key, at);
        }
    }
    void design(bool designed) {
        ButtonAmbient ambient;
        ambient.userMode = !designed;
        model->ReadProperties({}, ambient);
    }
    SIZE client() const {
        RECT area{};
        GetClientRect(window->handle(), &area);
        return {area.right, area.bottom};
    }
    std::string takeEvents() { return std::exchange(events, {}); }
    bool regionHolds(int x, int y) {
        const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
        GetWindowRgn(window->handle(), region.get());
        return PtInRegion(region.get(), x, y) != FALSE;
    }

    const std::map<std::string, std::function<void()>> happenings = {
        {"focus", [this] { SetFocus(window->handle()); }},
        {"blur", [this] { SetFocus(form.handle()); }},
        {"captured", [this] { SetCapture(form.handle()); }},
        {"released", [] { ReleaseCapture(); }},
        {"disable", [this] { model->Enabled(false); }},
        {"enable", [this] { model->Enabled(true); }},
        {"hide", [this] { model->Visible(false); }},
        {"disable-form", [this] { EnableWindow(form.handle(), FALSE); }},
        {"enable-form", [this] { EnableWindow(form.handle(), TRUE); }},
        {"hide-form", [this] { ShowWindow(form.handle(), SW_HIDE); }},
        {"show-form", [this] { ShowWindow(form.handle(), SW_SHOW); }},
        {"toggle", [this] { model->ButtonType(1); }}};

    CurrentSystemColours colours;
    FakeProcedures procedures;
    RefusingThemes themes;
    RecordedTips tips;
    TestForm form{{400, 400, 700, 600}};
    std::unique_ptr<isButton> model;
    std::unique_ptr<isButtonWindow> window;
    std::string events;
    std::string reported;
};

}  // namespace velvox
