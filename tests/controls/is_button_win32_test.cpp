// The push button's window, driven by the messages that the system sends.
#include "controls/is_button_win32.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/com_win32.h"
#include "base/system_win32.h"
#include "controls/is_button_layout.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

constexpr LPARAM insidePoint = MAKELPARAM(5, 5);
constexpr LPARAM outsidePoint = MAKELPARAM(-20, 5);
constexpr LPARAM repeated = 1 << 30;

int leaveRequests = 0;
BOOL WINAPI __attribute__((force_align_arg_pointer)) trackStandIn(LPTRACKMOUSEEVENT event) {
    EXPECT_EQ(event->cbSize, 16U);
    EXPECT_EQ(event->dwFlags, static_cast<DWORD>(TME_LEAVE));
    EXPECT_EQ(event->dwHoverTime, 0U);
    ++leaveRequests;
    return TRUE;
}

struct FakeProcedures : ProcedureFinder {
    FARPROC find(const char* library, const char* procedure) override {
        const std::string name = std::string(library) + "." + procedure;
        asked.push_back(name);
        return present.count(name) != 0
                   ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(&trackStandIn))
                   : nullptr;
    }
    std::set<std::string> present{"User32.TrackMouseEvent", "Comctl32._TrackMouseEvent"};
    std::vector<std::string> asked;
};

struct RefusingThemes : ThemeLibrary {
    bool drawPushButton(HWND, HDC, int, const RECT&) override {
        ++asked;
        return false;
    }
    int asked = 0;
};

struct RecordedTips : ToolTipSystem {
    HWND create(DWORD style, HWND owner) override {
        log += "create " + std::to_string(style) + ";";
        lastOwner = owner;
        return owner;
    }
    void send(HWND, UINT message, WPARAM wParam, LPARAM lParam) override {
        log += std::to_string(message) + " " + std::to_string(wParam);
        if (message == TTM_ADDTOOLA) {
            const auto* tool = reinterpret_cast<const TTTOOLINFOA*>(lParam);
            EXPECT_EQ(tool->hwnd, lastOwner);
            log += " flags " + std::to_string(tool->uFlags) + " " + tool->lpszText + " " +
                   std::to_string(tool->rect.right) + "x" + std::to_string(tool->rect.bottom);
        }
        if (message == TTM_SETTITLEA) log += std::string(" ") + reinterpret_cast<char*>(lParam);
        log += ";";
    }
    void destroy(HWND) override { log += "destroy;"; }
    std::string log;
    HWND lastOwner = nullptr;
};

struct RecordedRoles : AccessibleRoles {
    void announcePushButton(HWND) override { log += "+"; }
    void withdraw(HWND) override { log += "-"; }
    std::string log;
};

class IsButtonWindowTest : public testing::Test {
 protected:
    IsButtonWindowTest() {
        leaveRequests = 0;
        makeModel();
        setFailureReporter([this](std::string_view text) { reported += text; });
    }
    ~IsButtonWindowTest() override { setFailureReporter({}); }

    void makeModel() {
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
    void enter() { send(WM_MOUSEMOVE, 0, insidePoint); }
    void press() { send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint); }
    void release(LPARAM at = insidePoint) { send(WM_LBUTTONUP, 0, at); }
    void key(WPARAM code) {
        send(WM_KEYDOWN, code);
        send(WM_CHAR, code);
        send(WM_KEYUP, code);
    }
    void design() {
        ButtonAmbient ambient;
        ambient.userMode = false;
        model->ReadProperties({}, ambient);
    }
    std::string takeEvents() { return std::exchange(events, {}); }
    bool regionHolds(int x, int y) {
        const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
        GetWindowRgn(window->handle(), region.get());
        return PtInRegion(region.get(), x, y) != FALSE;
    }

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

TEST_F(IsButtonWindowTest, ClicksCountWhereTheyAreReleased) {
    open();
    press();
    release();
    EXPECT_EQ(takeEvents(), "C");
    EXPECT_EQ(GetFocus(), window->handle());
    press();
    release(outsidePoint);
    EXPECT_EQ(events, "");
    // The second press of a pair comes as a double click and counts as well.
    send(WM_LBUTTONDBLCLK, MK_LBUTTON, insidePoint);
    release();
    EXPECT_EQ(takeEvents(), "C");
    // A release whose press was elsewhere is no click; nor is the right button's.
    release();
    send(WM_RBUTTONDOWN, 0, insidePoint);
    send(WM_RBUTTONUP, 0, insidePoint);
    EXPECT_EQ(events, "");
    EXPECT_EQ(model->lastMouseButton(), MouseButton::Right);
    EXPECT_NE(GetCapture(), window->handle());
}

TEST_F(IsButtonWindowTest, ALostCaptureOrFocusEndsThePressWithoutAClick) {
    open();
    for (const bool focus : {false, true}) {
        press();
        EXPECT_EQ(GetCapture(), window->handle());
        if (focus)
            SetFocus(form.handle());
        else
            SetCapture(form.handle());
        EXPECT_NE(GetCapture(), window->handle());
        EXPECT_EQ(model->visualState(), ButtonState::Normal) << focus;
        ReleaseCapture();
        release();
        EXPECT_EQ(events, "");
    }
}

// A drag off the button shows that nothing will happen, and its end is the leave that the capture
// has swallowed or brought too early.
TEST_F(IsButtonWindowTest, HoverEntersOnceAndLeavesOnce) {
    open();
    enter();
    enter();
    EXPECT_EQ(leaveRequests, 1);
    send(WM_MOUSELEAVE);
    send(WM_MOUSELEAVE);
    EXPECT_EQ(takeEvents(), "EL");
    enter();
    press();
    send(WM_MOUSEMOVE, MK_LBUTTON, outsidePoint);
    EXPECT_NE(model->visualState(), ButtonState::Pressed);
    send(WM_MOUSELEAVE);
    EXPECT_EQ(takeEvents(), "E");
    send(WM_MOUSEMOVE, MK_LBUTTON, insidePoint);
    EXPECT_EQ(model->visualState(), ButtonState::Pressed);
    send(WM_MOUSEMOVE, MK_LBUTTON, outsidePoint);
    release(outsidePoint);
    EXPECT_EQ(takeEvents(), "L");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    enter();
    model->Enabled(false);
    EXPECT_FALSE(IsWindowEnabled(window->handle()));
    send(WM_MOUSELEAVE);
    EXPECT_EQ(takeEvents(), "EL") << "disabled";
    model->Enabled(true);
    enter();
    model->Visible(false);
    EXPECT_EQ(takeEvents(), "EL") << "hidden";
}

TEST_F(IsButtonWindowTest, TheKeyboardPressesOncePerStroke) {
    open();
    SetFocus(window->handle());
    key(VK_SPACE);
    EXPECT_EQ(takeEvents(), "C");
    send(WM_KEYDOWN, VK_SPACE, repeated);
    send(WM_CHAR, VK_SPACE, repeated);
    EXPECT_EQ(takeEvents(), "");
    key(VK_RETURN);
    EXPECT_EQ(takeEvents(), "C");
    send(WM_KEYDOWN, VK_RETURN, repeated);
    key('A');
    EXPECT_EQ(takeEvents(), "");
    send(BM_CLICK);
    EXPECT_EQ(takeEvents(), "C");
    // A release whose stroke began elsewhere does nothing.
    SetFocus(form.handle());
    SetFocus(window->handle());
    send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(model->visualState(), ButtonState::Normal);

    // The dialog manager leaves Enter to the button, and nothing else.
    MSG message{};
    message.message = WM_KEYDOWN;
    for (const WPARAM code : {VK_RETURN, VK_TAB}) {
        message.wParam = code;
        EXPECT_EQ(send(WM_GETDLGCODE, code, reinterpret_cast<LPARAM>(&message)),
                  DLGC_BUTTON | (code == VK_RETURN ? DLGC_WANTMESSAGE : 0));
    }
    isButton other("other", colours);
    const isButtonWindow next(other, form.handle(), 8);
    model->Enabled(false);
    EXPECT_EQ(GetFocus(), next.handle()) << "a disabled button hands the focus on";
}

TEST_F(IsButtonWindowTest, AHandlerMayThrowOrRunAMessageLoop) {
    model->Click = [] { throw std::runtime_error("the handler failed"); };
    open();
    press();
    release();
    EXPECT_EQ(reported, "the handler failed");
    EXPECT_NE(GetCapture(), window->handle());
    model->Click = [this] {
        events += 'C';
        if (events.size() > 1) return;
        PostMessageW(window->handle(), WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
        PostMessageW(window->handle(), WM_LBUTTONUP, 0, insidePoint);
        pumpUntil([&] { return events.size() > 1; }, 1000);
    };
    press();
    release();
    EXPECT_EQ(events, "CC");
}

TEST_F(IsButtonWindowTest, TheSubclassIsOfRunTimeAndComesOffInAnyOrder) {
    design();
    open();
    EXPECT_TRUE(procedures.asked.empty());
    model->ReadProperties({});
    // Somebody else's subclass on top of ours.
    struct Other {
        static LRESULT CALLBACK __attribute__((force_align_arg_pointer))
        run(HWND w, UINT m, WPARAM a, LPARAM b, UINT_PTR, DWORD_PTR) {
            return DefSubclassProc(w, m, a, b);
        }
    };
    SetWindowSubclass(window->handle(), &Other::run, 99, 0);
    design();
    enter();
    EXPECT_EQ(events, "");
    model->ReadProperties({});
    enter();
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
    EXPECT_FALSE(regionHolds(0, 0));
    EXPECT_TRUE(regionHolds(1, 0));
    SetFocus(window->handle());
    UpdateWindow(window->handle());
    enter();
    UpdateWindow(window->handle());
    const unsigned before = window->paints();
    press();
    send(WM_MOUSEMOVE, MK_LBUTTON, insidePoint);
    release();
    UpdateWindow(window->handle());
    EXPECT_EQ(window->paints() - before, 2U) << "pressed, and hot again";
    send(WM_MOUSELEAVE);
    SetFocus(form.handle());
    UpdateWindow(window->handle());
    const unsigned after = window->paints();
    const ClientPrint print(window->handle());
    EXPECT_EQ(print.at(40, 28), 0xBBBBBB);
    EXPECT_EQ(print.at(40, 0), 0x606060);
    EXPECT_EQ(window->paints(), after);
    model->Width(3000);
    RECT client{};
    GetClientRect(window->handle(), &client);
    EXPECT_FALSE(regionHolds(client.right - 1, 0));
    EXPECT_TRUE(regionHolds(client.right - 2, 0));
    model->Style(0);
    EXPECT_TRUE(regionHolds(0, 0));
}

TEST_F(IsButtonWindowTest, IsAChildThatTellsItsRoleOnce) {
    model->Caption("&Close");
    open();
    EXPECT_EQ(windowText(window->handle()), "&Close");
    EXPECT_EQ(GetWindowLongW(window->handle(), GWL_STYLE) & (WS_CHILD | WS_TABSTOP),
              WS_CHILD | WS_TABSTOP);
    model->Caption("Stop");
    EXPECT_EQ(windowText(window->handle()), "Stop");
    for (const LONG object : {OBJID_WINDOW, OBJID_CLIENT, OBJID_CLIENT})
        send(WM_GETOBJECT, 0, object);
    EXPECT_EQ(roles.log, "+");
    DestroyWindow(window->handle());
    window.reset();
    EXPECT_EQ(roles.log, "+-");
    // The system's own service, with COM and without it.
    systemRoles().announcePushButton(form.handle());
    const OleScope com;
    systemRoles().announcePushButton(form.handle());
    systemRoles().withdraw(form.handle());
}

TEST_F(IsButtonWindowTest, TrackingTakesTheFirstEntryPointThereIs) {
    open();
    EXPECT_EQ(model->tracking(), Tracking::UserInterface);
    EXPECT_EQ(procedures.asked, std::vector<std::string>{"User32.TrackMouseEvent"});
    procedures.present.erase("User32.TrackMouseEvent");
    open();
    EXPECT_EQ(model->tracking(), Tracking::CommonControls);
    procedures.present.clear();
    open();
    EXPECT_EQ(procedures.asked.back(), "Comctl32._TrackMouseEvent");
    enter();
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    // Nor does a toggle button stay down when the press ends beside it.
    model->ButtonType(1);
    press();
    release(outsidePoint);
    EXPECT_EQ(events, "");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

TEST_F(IsButtonWindowTest, ToolTipsAreMadeAnewOnEachEntry) {
    model->ToolTip("tip");
    open();
    enter();
    EXPECT_EQ(std::exchange(tips.log, {}), "create 3;1028 0 flags 16 tip 80x30;");
    EXPECT_EQ(tips.lastOwner, window->handle());
    send(WM_MOUSELEAVE);
    model->ToolTipType(1), model->ToolTipTitle("title"), model->ToolTipIcon(2);
    model->ToolTipBackColor(0x112233), model->ToolTipForeColor(0x445566);
    enter();
    EXPECT_EQ(std::exchange(tips.log, {}),
              "destroy;create 67;1028 0 flags 16 tip 80x30;1056 2 title;1044 4478310;"
              "1043 1122867;");
    window.reset();
    EXPECT_EQ(tips.log, "destroy;");
    ButtonToolTip record;
    record.centred = true;
    ToolTip(tips).show(record, form.handle());
    EXPECT_NE(tips.log.find("flags 18"), std::string::npos);

    // The system's own is topmost and goes with the button.
    const int before = liveHandles();
    window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                              ButtonServices{procedures, themes});
    model->pointerLeft();
    model->pointerMoved();
    const HWND tip = window->toolTip();
    EXPECT_NE(GetWindowLongW(tip, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTIPBKCOLOR, 0, 0), 0x112233);
    DestroyWindow(window->handle());
    EXPECT_FALSE(IsWindow(tip));
    EXPECT_EQ(liveHandles(), before);
}

TEST_F(IsButtonWindowTest, HandlersMayDestroyModelAndWindow) {
    const std::function<void()> ends[] = {
        [&] { window.reset(); }, [&] { window.reset(), model.reset(); }, [&] { model.reset(); },
        [&] { DestroyWindow(window->handle()); }};
    const std::vector<std::pair<UINT, WPARAM>> starts[] = {
        {{WM_LBUTTONDOWN, 0}, {WM_LBUTTONUP, 0}},
        {{WM_KEYDOWN, VK_SPACE}, {WM_CHAR, VK_SPACE}, {WM_KEYUP, VK_SPACE}},
        {{WM_MOUSEMOVE, 0}}};
    for (const auto& end : ends)
        for (const auto& start : starts) {
            makeModel();
            open();
            int told = 0;
            model->Click = model->MouseEnter = [&told, &end] {
                if (++told == 1) end();
            };
            const HWND handle = window->handle();
            for (const auto& [message, code] : start)
                SendMessageW(handle, message, code, code ? 0 : insidePoint);
            EXPECT_EQ(told, 1);
        }
    EXPECT_EQ(reported, "");
}

TEST_F(IsButtonWindowTest, RefusedThemesFallBackOnceAndForAll) {
    model->Style(6);
    model->NonThemeStyle(10);
    open();
    UpdateWindow(window->handle());
    EXPECT_EQ(model->Style(), 10);
    model->Refresh();
    EXPECT_EQ(themes.asked, 1);
    EXPECT_FALSE(regionHolds(2, 2));
    // A fallback that is the theme itself ends as well.
    model->NonThemeStyle(6);
    model->Style(6);
    model->Refresh();
    EXPECT_EQ(model->Style(), 6);
}

TEST_F(IsButtonWindowTest, TenThousandRandomSequences) {
    model->Move({150, 150, 450, 300});
    model->ToolTip("tip");
    open();
    std::mt19937 random(20);
    const auto pick = [&](unsigned count) { return random() % count; };
    constexpr UINT messages[] = {WM_LBUTTONDOWN, WM_LBUTTONUP,    WM_LBUTTONDBLCLK, WM_RBUTTONUP,
                                 WM_MOUSEMOVE,   WM_MOUSELEAVE,   WM_KEYDOWN,       WM_KEYUP,
                                 WM_CHAR,        WM_THEMECHANGED, WM_SYSCOLORCHANGE};
    constexpr WPARAM codes[] = {VK_SPACE, VK_RETURN, VK_TAB, 'A'};
    const LPARAM places[] = {insidePoint, insidePoint, outsidePoint, 0, repeated};
    enter();
    send(WM_MOUSELEAVE);
    // The recorded tips count none: every handle alive now is still alive at the end, no more.
    const int before = liveHandles();
    int wrong = 0;
    for (int sequence = 0; sequence < 10000; ++sequence)
        for (unsigned left = 1 + pick(5); left > 0; --left) {
            switch (pick(16)) {
                case 0: SetFocus(pick(2) ? window->handle() : form.handle()); break;
                case 1: SetCapture(form.handle()); break;
                case 2: ReleaseCapture(); break;
                case 3: model->Enabled(pick(4) != 0); break;
                case 4: model->ButtonType(static_cast<int>(pick(2))); break;
                case 5: model->Value(pick(2) != 0); break;
                case 6:
                    if (pick(8) == 0) model->Style(static_cast<int>(pick(13)));
                    break;
                default:
                    const UINT message = messages[pick(11)];
                    const bool keys = message >= WM_KEYDOWN && message <= WM_CHAR;
                    send(message, keys ? codes[pick(4)] : 0, places[keys ? 3 + pick(2) : pick(3)]);
            }
            const int state = static_cast<int>(model->visualState());
            wrong += state < 1 || state > 4 || (!model->Enabled() && state != 4);
        }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(liveHandles(), before);
    EXPECT_EQ(reported, "");
    // Left alone it comes to rest.
    ReleaseCapture();
    SetFocus(form.handle());
    send(WM_MOUSELEAVE);
    model->Enabled(true);
    model->Value(false);
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

}  // namespace
}  // namespace velvox
