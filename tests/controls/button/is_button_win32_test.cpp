// The push button's window, driven by the messages that the system sends.
#include "controls/button/is_button_win32.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/com_win32.h"
#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

using enum ButtonState;

constexpr LPARAM inside = MAKELPARAM(5, 5);
constexpr LPARAM outside = MAKELPARAM(-20, 5);
constexpr LPARAM held = 1 << 30;  // a key that repeats
constexpr LPARAM plain = 0;

// What the system sends for each word of a sequence; one with several messages has several rows.
constexpr struct {
    std::string_view word;
    UINT message;
    LPARAM at;
} mouseSteps[] = {{"enter", WM_MOUSEMOVE, inside},        {"drag-off", WM_MOUSEMOVE, outside},
                  {"leave", WM_MOUSELEAVE, plain},        {"press", WM_LBUTTONDOWN, inside},
                  {"double", WM_LBUTTONDBLCLK, inside},   {"release", WM_LBUTTONUP, inside},
                  {"release-off", WM_LBUTTONUP, outside}, {"right", WM_RBUTTONDOWN, inside},
                  {"right", WM_RBUTTONUP, inside},        {"by-program", BM_CLICK, plain},
                  {"theme", WM_THEMECHANGED, plain},      {"colours", WM_SYSCOLORCHANGE, plain}};
constexpr struct {
    std::string_view word;
    UINT message;
    WPARAM code;
    LPARAM flags;
} keySteps[] = {
    {"space", WM_KEYDOWN, VK_SPACE, plain},     {"space", WM_CHAR, VK_SPACE, plain},
    {"held-space", WM_KEYDOWN, VK_SPACE, held}, {"held-space", WM_CHAR, VK_SPACE, held},
    {"space-up", WM_KEYUP, VK_SPACE, plain},    {"enter-key", WM_KEYDOWN, VK_RETURN, plain},
    {"enter-key", WM_CHAR, VK_RETURN, plain},   {"held-enter", WM_KEYDOWN, VK_RETURN, held},
    {"letter", WM_KEYDOWN, 'A', plain},         {"letter", WM_CHAR, 'A', plain}};

int leaveRequests = 0;
BOOL WINAPI __attribute__((force_align_arg_pointer)) trackStandIn(LPTRACKMOUSEEVENT event) {
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

struct RecordedRoles : AccessibleRoles {
    void announcePushButton(HWND) override { log += "+"; }
    void withdraw(HWND) override { log += "-"; }
    std::string log;
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
                                                  ButtonServices{procedures, themes, tips, roles});
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(window->handle(), message, wParam, lParam);
    }
    // Carries out a sequence of messages and of other things that happen to a button.
    void run(const std::string& steps) {
        const HWND button = window->handle();
        std::istringstream words(steps);
        for (std::string word; words >> word;) {
            if (happenings.contains(word)) happenings.at(word)();
            for (const auto& [name, message, at] : mouseSteps)
                if (name == word) SendMessageW(button, message, 0, at);
            for (const auto& [name, message, code, flags] : keySteps)
                if (name == word) SendMessageW(button, message, code, flags);
        }
    }
    void design(bool designed) {
        ButtonAmbient ambient;
        ambient.userMode = !designed;
        model->ReadProperties({}, ambient);
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
        {"toggle", [this] { model->ButtonType(1); }},
        {"no-toggle", [this] { model->ButtonType(0); }},
        {"on", [this] { model->Value(true); }},
        {"off", [this] { model->Value(false); }}};

    CurrentSystemColours colours;
    FakeProcedures procedures;
    RefusingThemes themes;
    RecordedTips tips;
    RecordedRoles roles;
    TestForm form{{400, 400, 700, 600}};
    std::unique_ptr<isButton> model;
    std::unique_ptr<isButtonWindow> window;
    std::string events;
    std::string reported;
};

TEST_F(IsButtonWindowTest, SequencesRaiseTheirEventsAndEndInTheirState) {
    const struct {
        const char* steps;
        const char* events;
        ButtonState state;
    } rows[] = {
        // Clicks count where they are released, the second of a pair as well.
        {"press release double release", "CC", Hot},
        {"press release-off", "", Normal},
        {"enter press release-off", "EL", Normal},
        // A release whose press was elsewhere is no click; nor is the right button's.
        {"press release release right", "C", Hot},
        {"right release", "", Normal},
        // A lost capture or focus ends the press without a click.
        {"press captured released release", "", Normal},
        {"press blur release", "", Normal},
        // A drag off the button shows that nothing will happen, and its end is the leave that the
        // capture has swallowed or brought too early.
        {"enter enter leave leave", "EL", Normal},
        {"enter press drag-off leave", "E", Hot},
        {"enter press drag-off enter", "E", Pressed},
        {"enter press leave drag-off release-off", "EL", Normal},
        {"enter disable", "EL", Disabled},
        {"enter hide", "EL", Normal},
        // The keyboard presses once per stroke, and a stroke that began elsewhere does nothing.
        {"focus space held-space", "C", Pressed},
        {"focus space space-up blur", "C", Normal},
        {"focus space blur focus space-up", "C", Normal},
        // A press ends when its release cannot come any more, and does not come back.
        {"press disable enable release", "", Normal},
        {"press disable-form enable-form release", "", Normal},
        {"focus space hide-form show-form space-up", "C", Normal},
        {"enter-key held-enter letter by-program", "CC", Normal}};
    for (const auto& row : rows) {
        makeModel();
        open();
        run(row.steps);
        EXPECT_EQ(takeEvents(), row.events) << row.steps;
        EXPECT_EQ(model->visualState(), row.state) << row.steps;
        EXPECT_FALSE(row.state == Normal && GetCapture() == window->handle()) << row.steps;
    }
}

TEST_F(IsButtonWindowTest, TheDialogManagerLeavesItEnter) {
    open();
    MSG message{};
    message.message = WM_KEYDOWN;
    for (const WPARAM code : {VK_RETURN, VK_TAB}) {
        message.wParam = code;
        EXPECT_EQ(send(WM_GETDLGCODE, code, reinterpret_cast<LPARAM>(&message)),
                  DLGC_BUTTON | (code == VK_RETURN ? DLGC_WANTMESSAGE : 0));
    }
}

TEST_F(IsButtonWindowTest, AHandlerMayThrowOrRunAMessageLoop) {
    model->Click = [] { throw std::runtime_error("the handler failed"); };
    open();
    run("press release");
    EXPECT_EQ(std::exchange(reported, {}), "the handler failed");
    model->Click = [this] {
        events += 'C';
        if (events.size() > 1) return;
        PostMessageW(window->handle(), WM_LBUTTONDOWN, MK_LBUTTON, inside);
        PostMessageW(window->handle(), WM_LBUTTONUP, 0, inside);
        pumpUntil([&] { return events.size() > 1; });
    };
    run("press release");
    EXPECT_EQ(events, "CC");

    const std::function<void()> ends[] = {
        [&] { window.reset(); }, [&] { window.reset(), model.reset(); }, [&] { model.reset(); },
        [&] { DestroyWindow(window->handle()); }};
    for (const auto& end : ends)
        for (const char* const start : {"press release", "space space-up", "enter"}) {
            makeModel();
            open();
            int calls = 0;
            model->Click = model->MouseEnter = [&calls, &end] {
                if (++calls == 1) end();
            };
            run(start);
            EXPECT_EQ(calls, 1) << "it may also end the button: " << start;
        }
    EXPECT_EQ(reported, "");
}

TEST_F(IsButtonWindowTest, TheSubclassIsOfRunTimeAndComesOffInAnyOrder) {
    design(true);
    open();
    EXPECT_TRUE(procedures.asked.empty());
    design(false);
    design(true);
    run("enter");
    EXPECT_EQ(events, "");
    design(false);
    run("enter");
    EXPECT_EQ(events, "E");
    DestroyWindow(form.handle());
    EXPECT_EQ(window->handle(), nullptr);
    model->Caption("still here");
}

TEST_F(IsButtonWindowTest, CutsPaintsAndPrintsAsItsStyleSays) {
    model->Style(5);
    model->UseCustomColors(true);
    model->BackColor(0xE0E0E0);
    open();
    run("focus enter");
    UpdateWindow(window->handle());
    const unsigned before = window->paints();
    run("press enter release");
    UpdateWindow(window->handle());
    EXPECT_EQ(window->paints() - before, 2U) << "pressed, and hot again";
    run("theme colours");
    EXPECT_EQ(window->paints() - before, 4U) << "once for each";
    run("leave blur");
    UpdateWindow(window->handle());
    const unsigned after = window->paints();
    const ClientPrint print(window->handle());
    EXPECT_EQ(print.at(40, 28), 0xBBBBBB);
    EXPECT_EQ(print.at(40, 0), 0x606060);
    EXPECT_EQ(window->paints(), after);
    for (const int twips : {1200, 3000}) {
        model->Width(twips);
        RECT client{};
        GetClientRect(window->handle(), &client);
        const int right = client.right - 1;
        EXPECT_FALSE(regionHolds(0, 0) || regionHolds(right, 0) ||
                     regionHolds(right, client.bottom - 1));
        EXPECT_TRUE(regionHolds(1, 0) && regionHolds(right - 1, 0) && regionHolds(0, 15));
    }
    model->Style(0);
    EXPECT_TRUE(regionHolds(0, 0));
}

// Compares what the screen shows with a print, within the window's region.
TEST_F(IsButtonWindowTest, AResizeRepaintsTheWholeFace) {
    for (int style = 0; style <= 10; ++style) {
        model->Style(style);
        model->Move({150, 150, 1200, 450});
        open();
        for (const Place& place : {Place{150, 150, 1500, 600}, Place{150, 150, 900, 510}}) {
            model->Move(place);
            RECT client{};
            GetClientRect(window->handle(), &client);
            clsVirtualDC shown;
            shown.CreateMyDC(client.right, client.bottom);
            BitBlt(shown.hDC(), 0, 0, client.right, client.bottom, WindowDc(window->handle()).get(),
                   0, 0, SRCCOPY);
            const ClientPrint print(window->handle());
            int stale = 0;
            for (int y = 0; y < client.bottom; ++y)
                for (int x = 0; x < client.right; ++x)
                    stale += regionHolds(x, y) && shown.GetPixel(x, y) != print.at(x, y);
            EXPECT_EQ(stale, 0) << "style " << style << ", width " << place.width;
        }
    }
}

TEST_F(IsButtonWindowTest, ShowsItsCaptionAndAnnouncesItsRoleOnce) {
    open();
    model->Caption("Stop");
    EXPECT_EQ(windowText(window->handle()), "Stop");
    for (const LONG object : {OBJID_WINDOW, OBJID_CLIENT, OBJID_CLIENT})
        send(WM_GETOBJECT, 0, object);
    EXPECT_EQ(roles.log, "+");
    window.reset();
    EXPECT_EQ(roles.log, "+-");
    const OleScope com;
    systemRoles().announcePushButton(form.handle());
    systemRoles().withdraw(form.handle());
}

TEST_F(IsButtonWindowTest, TrackingTakesTheFirstEntryPointThereIs) {
    leaveRequests = 0;
    open();
    run("enter enter");
    EXPECT_EQ(leaveRequests, 1);
    EXPECT_EQ(procedures.asked, std::vector<std::string>{"User32.TrackMouseEvent"});
    procedures.present.erase("User32.TrackMouseEvent");
    open();
    EXPECT_EQ(model->tracking(), Tracking::CommonControls);
    procedures.present.clear();
    makeModel();
    open();
    EXPECT_EQ(procedures.asked.back(), "Comctl32._TrackMouseEvent");
    // Nor does a toggle button stay down when the press ends beside it.
    takeEvents();
    run("enter toggle press release-off");
    EXPECT_EQ(events, "");
    EXPECT_EQ(model->visualState(), Normal);
}

TEST_F(IsButtonWindowTest, ToolTipsAreCreatedOnEachEntry) {
    model->ToolTip("tip");
    open();
    run("enter leave");
    model->ToolTipType(1), model->ToolTipTitle("title"), model->ToolTipIcon(2);
    model->ToolTipBackColor(0x112233), model->ToolTipForeColor(0x445566);
    run("enter");
    window.reset();
    EXPECT_EQ(
        tips.log.str(),
        "create 3;1028 0 flags 16 tip 80x30;destroy;"
        "create 67;1028 0 flags 16 tip 80x30;1056 2 title;1044 4478310;1043 1122867;destroy;");

    // The real one is topmost and is destroyed with the button.
    const int before = liveHandles();
    model->pointerLeft();
    window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                              ButtonServices{procedures, themes});
    model->pointerMoved();
    const HWND tip = window->toolTip();
    EXPECT_NE(GetWindowLongW(tip, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTIPBKCOLOR, 0, 0), 0x112233);
    DestroyWindow(window->handle());
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(liveHandles(), before);
}

TEST_F(IsButtonWindowTest, RefusedThemesFallBackOnceAndForAll) {
    model->Style(6);
    model->NonThemeStyle(10);
    open();
    run("focus");
    UpdateWindow(window->handle());
    EXPECT_EQ(model->Style(), 10);
    model->Refresh();
    EXPECT_EQ(themes.asked, 1);
    EXPECT_EQ(themes.lastState, 5) << "focused";
    EXPECT_FALSE(regionHolds(2, 2));
    // A fallback that is the theme itself ends as well.
    model->NonThemeStyle(6);
    model->Style(6);
    EXPECT_EQ(model->Style(), 6);
}

TEST_F(IsButtonWindowTest, TenThousandRandomSequences) {
    model->Move({150, 150, 450, 300});
    model->ToolTip("tip");
    open();
    std::vector<std::string> steps;
    for (const auto& step : mouseSteps) steps.emplace_back(step.word);
    for (const auto& step : keySteps) steps.emplace_back(step.word);
    for (const auto& [word, done] : happenings)
        if (!word.starts_with("hide")) steps.push_back(word);
    std::mt19937 random(20);
    run("enter leave");
    // The recorded tips count none: every handle alive now is still alive at the end, no more.
    const int before = liveHandles();
    int wrong = 0;
    const auto step = [&] { return steps[random() % steps.size()] + ' '; };
    for (int sequence = 0; sequence < 10000; ++sequence) {
        run(step() + step());
        if (random() % 64 == 0) model->Style(static_cast<int>(random() % 13));
        wrong += (model->visualState() == Disabled) == model->Enabled();
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(liveHandles(), before);
    EXPECT_EQ(reported, "");
    run("released blur leave enable off");
    EXPECT_EQ(model->visualState(), Normal) << "left alone it comes to rest";
}

}  // namespace
}  // namespace velvox
