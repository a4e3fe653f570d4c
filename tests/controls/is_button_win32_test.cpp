// The push button's window, driven by the messages that the system sends.
#include "controls/is_button_win32.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/com_win32.h"
#include "base/system_win32.h"
#include "controls/is_button_layout.h"
#include "tests/controls/is_button_fakes.h"

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
        return reinterpret_cast<HWND>(static_cast<INT_PTR>(++made));
    }
    void send(HWND, UINT message, WPARAM wParam, LPARAM lParam) override {
        log += std::to_string(message) + " " + std::to_string(wParam);
        if (message == TTM_ADDTOOLA) {
            const auto* tool = reinterpret_cast<const TTTOOLINFOA*>(lParam);
            EXPECT_EQ(tool->hwnd, lastOwner);
            EXPECT_EQ(tool->uId, 0U);
            EXPECT_EQ(tool->hinst, GetModuleHandleW(nullptr));
            log += " flags " + std::to_string(tool->uFlags) + " '" + tool->lpszText + "' " +
                   std::to_string(tool->rect.right) + "x" + std::to_string(tool->rect.bottom);
        } else if (message == TTM_SETTITLEA) {
            log += " '" + std::string(reinterpret_cast<const char*>(lParam)) + "'";
        }
        log += ";";
    }
    void destroy(HWND) override { log += "destroy;"; }

    std::string log;
    HWND lastOwner = nullptr;
    int made = 0;
};

struct RecordedRoles : AccessibleRoles {
    void announcePushButton(HWND) override { log += "+"; }
    void withdraw(HWND) override { log += "-"; }

    std::string log;
};

// A form on the screen, off its visible part.
class Form : public Window {
 public:
    Form() {
        registerWindowClass(L"ButtonTestForm");
        WindowRequest request;
        request.className = L"ButtonTestForm";
        request.style = WS_POPUP | WS_VISIBLE;
        request.bounds = {400, 400, 700, 600};
        create(request);
    }
    ~Form() override { destroy(); }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

class IsButtonWindowTest : public testing::Test {
 protected:
    IsButtonWindowTest() {
        leaveRequests = 0;
        model = std::make_unique<isButton>("b", colours);
        model->Move({150, 150, 1200, 450});
        model->Click = [this] { events += 'C'; };
        model->MouseEnter = [this] { events += 'E'; };
        model->MouseLeave = [this] { events += 'L'; };
        setFailureReporter([this](std::string_view text) { reported += text; });
    }
    ~IsButtonWindowTest() override { setFailureReporter({}); }

    void open() {
        window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                                  ButtonServices{procedures, themes, tips, roles});
    }
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(window->handle(), message, wParam, lParam);
    }
    void clickAt(LPARAM up) {
        send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
        send(WM_LBUTTONUP, 0, up);
    }
    void key(WPARAM code) {
        send(WM_KEYDOWN, code);
        send(WM_CHAR, code);
        send(WM_KEYUP, code);
    }

    CurrentSystemColours colours;
    FakeProcedures procedures;
    RefusingThemes themes;
    RecordedTips tips;
    RecordedRoles roles;
    Form form;
    std::unique_ptr<isButton> model;
    std::unique_ptr<isButtonWindow> window;
    std::string events;
    std::string reported;
};

TEST_F(IsButtonWindowTest, IsAChildWithTheCaptionAsItsText) {
    model->Caption("&Close");
    open();
    wchar_t name[32] = {};
    GetClassNameW(window->handle(), name, 32);
    EXPECT_STREQ(name, L"isButton");
    EXPECT_EQ(windowText(window->handle()), "&Close");
    const auto style = static_cast<DWORD>(GetWindowLongW(window->handle(), GWL_STYLE));
    EXPECT_EQ(style & (WS_CHILD | WS_TABSTOP | WS_VISIBLE | WS_DISABLED),
              WS_CHILD | WS_TABSTOP | WS_VISIBLE);
    EXPECT_EQ(GetDlgCtrlID(window->handle()), 7);
    model->Caption("Stop");
    EXPECT_EQ(windowText(window->handle()), "Stop");
    model->Enabled(false);
    EXPECT_FALSE(IsWindowEnabled(window->handle()));
    model->Enabled(true);
    EXPECT_TRUE(IsWindowEnabled(window->handle()));
    model->Visible(false);
    EXPECT_FALSE(IsWindowVisible(window->handle()));
    model->Move({0, 0, 600, 600});
    RECT client{};
    GetClientRect(window->handle(), &client);
    EXPECT_EQ(client.right, toPixels(Place{0, 0, 600, 600}).right);
}

TEST_F(IsButtonWindowTest, AssistiveProgramsAreToldItsRoleOnce) {
    const auto ask = [this](LONG object) { send(WM_GETOBJECT, 0, object); };
    open();
    ask(OBJID_WINDOW);
    EXPECT_EQ(roles.log, "");
    ask(OBJID_CLIENT);
    ask(OBJID_CLIENT);
    EXPECT_EQ(roles.log, "+");
    window.reset();
    EXPECT_EQ(roles.log, "+-");
    open();
    ask(OBJID_CLIENT);
    DestroyWindow(window->handle());
    window.reset();
    EXPECT_EQ(roles.log, "+-+-");
    // The system's own service, with COM and without it.
    systemRoles().announcePushButton(form.handle());
    const OleScope com;
    systemRoles().announcePushButton(form.handle());
    systemRoles().withdraw(form.handle());
}

TEST_F(IsButtonWindowTest, ClicksCountWhereTheyAreReleased) {
    open();
    clickAt(insidePoint);
    EXPECT_EQ(events, "C");
    EXPECT_EQ(GetFocus(), window->handle());
    clickAt(outsidePoint);
    EXPECT_EQ(events, "C");
    // The second press of a pair comes as a double click and counts as well.
    send(WM_LBUTTONDBLCLK, MK_LBUTTON, insidePoint);
    EXPECT_EQ(model->visualState(), ButtonState::Pressed);
    send(WM_LBUTTONUP, 0, insidePoint);
    EXPECT_EQ(events, "CC");
    // A release whose press was elsewhere is no click; nor is the right button's.
    send(WM_LBUTTONUP, 0, insidePoint);
    send(WM_RBUTTONDOWN, 0, insidePoint);
    send(WM_RBUTTONUP, 0, insidePoint);
    EXPECT_EQ(events, "CC");
    EXPECT_EQ(model->lastMouseButton(), MouseButton::Right);
    EXPECT_NE(GetCapture(), window->handle());
}

TEST_F(IsButtonWindowTest, AStolenCaptureEndsThePressWithoutAClick) {
    open();
    send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
    EXPECT_EQ(GetCapture(), window->handle());
    SetCapture(form.handle());
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    ReleaseCapture();
    send(WM_LBUTTONUP, 0, insidePoint);
    EXPECT_EQ(events, "");
    // The focus takes the press away too.
    send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
    SetFocus(form.handle());
    EXPECT_NE(GetCapture(), window->handle());
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

TEST_F(IsButtonWindowTest, HoverEntersOnceAndLeavesOnce) {
    open();
    send(WM_MOUSEMOVE, 0, insidePoint);
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "E");
    EXPECT_EQ(leaveRequests, 1);
    EXPECT_EQ(model->visualState(), ButtonState::Hot);
    send(WM_MOUSELEAVE);
    send(WM_MOUSELEAVE);
    EXPECT_EQ(events, "EL");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

// A drag off the button shows that nothing will happen, and its end is the leave that the capture
// has swallowed or brought too early.
TEST_F(IsButtonWindowTest, ADragThatEndsOutsideLeaves) {
    open();
    send(WM_MOUSEMOVE, 0, insidePoint);
    send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
    send(WM_MOUSEMOVE, MK_LBUTTON, outsidePoint);
    EXPECT_NE(model->visualState(), ButtonState::Pressed);
    send(WM_MOUSELEAVE);
    EXPECT_EQ(events, "E");
    send(WM_MOUSEMOVE, MK_LBUTTON, insidePoint);
    EXPECT_EQ(model->visualState(), ButtonState::Pressed);
    send(WM_MOUSEMOVE, MK_LBUTTON, outsidePoint);
    send(WM_LBUTTONUP, 0, outsidePoint);
    EXPECT_EQ(events, "EL");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    // And it can be entered again.
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "ELE");
}

TEST_F(IsButtonWindowTest, DisablingAndHidingEndTheHover) {
    open();
    send(WM_MOUSEMOVE, 0, insidePoint);
    model->Enabled(false);
    EXPECT_EQ(events, "EL");
    send(WM_MOUSELEAVE);
    EXPECT_EQ(events, "EL");
    model->Enabled(true);
    send(WM_MOUSEMOVE, 0, insidePoint);
    model->Visible(false);
    EXPECT_EQ(events, "ELEL");
}

TEST_F(IsButtonWindowTest, TheKeyboardPressesOncePerStroke) {
    open();
    SetFocus(window->handle());
    key(VK_SPACE);
    EXPECT_EQ(events, "C");
    send(WM_KEYDOWN, VK_SPACE, repeated);
    send(WM_CHAR, VK_SPACE, repeated);
    EXPECT_EQ(events, "C");
    send(WM_KEYDOWN, VK_RETURN);
    send(WM_CHAR, VK_RETURN);
    send(WM_KEYUP, VK_RETURN);
    EXPECT_EQ(events, "CC");
    send(WM_KEYDOWN, VK_RETURN, repeated);
    key('A');
    EXPECT_EQ(events, "CC");
    send(BM_CLICK);
    EXPECT_EQ(events, "CCC");
    // A release whose stroke began elsewhere does nothing.
    SetFocus(form.handle());
    SetFocus(window->handle());
    send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

TEST_F(IsButtonWindowTest, TheDialogManagerLeavesEnterToTheButton) {
    open();
    EXPECT_EQ(send(WM_GETDLGCODE), DLGC_BUTTON);
    MSG enter{};
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    EXPECT_EQ(send(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter)),
              DLGC_BUTTON | DLGC_WANTMESSAGE);
    enter.wParam = VK_TAB;
    EXPECT_EQ(send(WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&enter)), DLGC_BUTTON);
}

TEST_F(IsButtonWindowTest, DisablingTheFocusedButtonHandsTheFocusOn) {
    isButton other("other", colours);
    other.Move({150, 900, 1200, 450});
    open();
    isButtonWindow next(other, form.handle(), 8);
    SetFocus(window->handle());
    model->Enabled(false);
    EXPECT_EQ(GetFocus(), next.handle());
}

TEST_F(IsButtonWindowTest, TrackingTakesTheFirstEntryPointThereIs) {
    open();
    EXPECT_EQ(model->tracking(), Tracking::UserInterface);
    EXPECT_EQ(procedures.asked, std::vector<std::string>{"User32.TrackMouseEvent"});
    window.reset();
    procedures.present.erase("User32.TrackMouseEvent");
    open();
    EXPECT_EQ(model->tracking(), Tracking::CommonControls);
    EXPECT_EQ(procedures.asked.back(), "Comctl32._TrackMouseEvent");
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(leaveRequests, 1);
    send(WM_MOUSELEAVE);
}

TEST_F(IsButtonWindowTest, WithoutTrackingItStillClicks) {
    procedures.present.clear();
    open();
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    clickAt(insidePoint);
    send(WM_MOUSELEAVE);
    EXPECT_EQ(events, "C");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
    EXPECT_EQ(tips.log, "");
    // Nor does a toggle button stay down when the press ends beside it.
    model->ButtonType(1);
    clickAt(outsidePoint);
    EXPECT_EQ(events, "C");
    EXPECT_EQ(model->visualState(), ButtonState::Normal);
}

TEST_F(IsButtonWindowTest, ADesignedButtonIsNotTracked) {
    ButtonAmbient design;
    design.userMode = false;
    model->ReadProperties({}, design);
    open();
    EXPECT_TRUE(procedures.asked.empty());
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "");
    // Put to use, it is.
    model->ReadProperties({});
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "E");
}

TEST_F(IsButtonWindowTest, ToolTipsAreMadeAnewOnEachEntry) {
    model->ToolTip("tip");
    open();
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(tips.log, "create 3;1028 0 flags 16 'tip' 80x30;");
    EXPECT_EQ(tips.lastOwner, window->handle());
    send(WM_MOUSELEAVE);
    tips.log.clear();
    model->ToolTipType(1);
    model->ToolTipTitle("title");
    model->ToolTipIcon(2);
    model->ToolTipBackColor(0x112233);
    model->ToolTipForeColor(0x445566);
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(tips.log,
              "destroy;create 67;1028 0 flags 16 'tip' 80x30;1056 2 'title';1044 4478310;"
              "1043 1122867;");
    send(WM_MOUSELEAVE);
    tips.log.clear();
    model->ToolTipTitle("");
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_NE(tips.log.find("1056 2 ''"), std::string::npos);
    tips.log.clear();
    window.reset();
    EXPECT_EQ(tips.log, "destroy;");
    ToolTip centred(tips);
    ButtonToolTip record;
    record.centred = true;
    centred.show(record, form.handle());
    EXPECT_NE(tips.log.find("flags 18"), std::string::npos);
}

TEST_F(IsButtonWindowTest, TheSystemsToolTipIsTopmostAndGoesWithTheButton) {
    model->ToolTip("tip");
    model->ToolTipBackColor(0x112233);
    model->ToolTipForeColor(0x445566);
    const int before = liveHandles();
    window = std::make_unique<isButtonWindow>(*model, form.handle(), 7,
                                              ButtonServices{procedures, themes});
    model->pointerMoved();
    const HWND tip = window->toolTip();
    ASSERT_TRUE(IsWindow(tip));
    EXPECT_NE(GetWindowLongW(tip, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTIPBKCOLOR, 0, 0), 0x112233);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTIPTEXTCOLOR, 0, 0), 0x445566);
    model->pointerLeft();
    model->pointerMoved();
    EXPECT_FALSE(IsWindow(tip));
    const HWND second = window->toolTip();
    DestroyWindow(window->handle());
    EXPECT_FALSE(IsWindow(second));
    EXPECT_EQ(liveHandles(), before);
}

TEST_F(IsButtonWindowTest, HandlersMayDestroyModelAndWindow) {
    const auto prepare = [&] {
        model = std::make_unique<isButton>("b", colours);
        model->Move({150, 150, 1200, 450});
        open();
    };
    const std::function<void()> ends[] = {
        [&] { window.reset(); },
        [&] { window.reset(), model.reset(); },
        [&] { model.reset(); },
        [&] { DestroyWindow(window->handle()); },
    };
    const std::function<void(HWND)> starts[] = {
        [](HWND b) {
            SendMessageW(b, WM_LBUTTONDOWN, 0, insidePoint);
            SendMessageW(b, WM_LBUTTONUP, 0, insidePoint);
        },
        [](HWND b) {
            SendMessageW(b, WM_KEYDOWN, VK_SPACE, 0);
            SendMessageW(b, WM_CHAR, VK_SPACE, 0);
            SendMessageW(b, WM_KEYUP, VK_SPACE, 0);
        },
        [](HWND b) { SendMessageW(b, WM_KEYDOWN, VK_RETURN, 0); },
        [](HWND b) { SendMessageW(b, WM_MOUSEMOVE, 0, insidePoint); },
    };
    for (const auto& end : ends) {
        for (const auto& start : starts) {
            prepare();
            int told = 0;
            const auto handler = [&told, &end] {
                if (++told == 1) end();
            };
            model->Click = handler;
            model->MouseEnter = handler;
            const HWND handle = window->handle();
            start(handle);
            EXPECT_EQ(told, 1);
            window.reset();
            model.reset();
            EXPECT_FALSE(IsWindow(handle));
        }
    }
    EXPECT_EQ(reported, "");
}

TEST_F(IsButtonWindowTest, AThrowingHandlerIsReportedAndTheButtonGoesOn) {
    model->Click = [] { throw std::runtime_error("the handler failed"); };
    model->MouseEnter = [] { throw std::runtime_error(" and entering"); };
    open();
    clickAt(insidePoint);
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(reported, "the handler failed and entering");
    EXPECT_NE(GetCapture(), window->handle());
    EXPECT_EQ(model->visualState(), ButtonState::Hot);
    model->Click = [this] { events += 'C'; };
    clickAt(insidePoint);
    EXPECT_EQ(events, "C");
}

TEST_F(IsButtonWindowTest, AHandlerMayRunAMessageLoop) {
    model->Click = [this] {
        events += 'C';
        if (events.size() > 1) return;
        PostMessageW(window->handle(), WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);
        PostMessageW(window->handle(), WM_LBUTTONUP, 0, insidePoint);
        MSG message;
        while (PeekMessageW(&message, window->handle(), 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    };
    open();
    clickAt(insidePoint);
    EXPECT_EQ(events, "CC");
}

TEST_F(IsButtonWindowTest, TheSubclassComesOffInAnyOrder) {
    open();
    // Somebody else's subclass on top of ours.
    struct Other {
        static LRESULT CALLBACK __attribute__((force_align_arg_pointer))
        run(HWND w, UINT m, WPARAM a, LPARAM b, UINT_PTR, DWORD_PTR) {
            return DefSubclassProc(w, m, a, b);
        }
    };
    SetWindowSubclass(window->handle(), &Other::run, 99, 0);
    ButtonAmbient design;
    design.userMode = false;
    model->ReadProperties({}, design);
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "");
    model->ReadProperties({});
    send(WM_MOUSEMOVE, 0, insidePoint);
    EXPECT_EQ(events, "E");
    DestroyWindow(form.handle());
    EXPECT_EQ(window->handle(), nullptr);
    model->Caption("still here");
    window.reset();
}

TEST_F(IsButtonWindowTest, RefusedThemesFallBackOnceAndForAll) {
    model->Style(6);
    model->NonThemeStyle(10);
    open();
    UpdateWindow(window->handle());
    EXPECT_EQ(model->Style(), 10);
    const int asked = themes.asked;
    EXPECT_EQ(asked, 1);
    model->Refresh();
    EXPECT_EQ(themes.asked, asked);
    const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
    GetWindowRgn(window->handle(), region.get());
    EXPECT_FALSE(PtInRegion(region.get(), 2, 2));
    // A fallback that is the theme itself ends as well.
    model->NonThemeStyle(6);
    model->Style(6);
    model->Refresh();
    EXPECT_EQ(model->Style(), 6);
}

TEST_F(IsButtonWindowTest, TheWindowIsCutAsItsStyleSays) {
    model->Style(5);
    open();
    const auto holds = [&](int x, int y) {
        const OwnedRegion region(CreateRectRgn(0, 0, 0, 0));
        GetWindowRgn(window->handle(), region.get());
        return PtInRegion(region.get(), x, y) != FALSE;
    };
    EXPECT_FALSE(holds(0, 0));
    EXPECT_TRUE(holds(1, 0));
    model->Style(8);
    EXPECT_FALSE(holds(1, 0));
    model->Style(0);
    EXPECT_TRUE(holds(0, 0));
    model->Style(5);
    model->Width(3000);
    RECT client{};
    GetClientRect(window->handle(), &client);
    EXPECT_FALSE(holds(client.right - 1, 0));
    EXPECT_TRUE(holds(client.right - 2, 0));
}

TEST_F(IsButtonWindowTest, APressAndReleaseRepaintAsOftenAsTheStateChanges) {
    open();
    SetFocus(window->handle());
    UpdateWindow(window->handle());
    send(WM_MOUSEMOVE, 0, insidePoint);
    UpdateWindow(window->handle());
    const unsigned before = window->paints();
    send(WM_LBUTTONDOWN, MK_LBUTTON, insidePoint);  // pressed
    send(WM_MOUSEMOVE, MK_LBUTTON, insidePoint);
    send(WM_LBUTTONUP, 0, insidePoint);  // hot again
    UpdateWindow(window->handle());
    EXPECT_EQ(window->paints() - before, 2U);
}

// The same picture wherever it is asked for.
TEST_F(IsButtonWindowTest, PrintsWhatItPaints) {
    model->Style(5);
    model->UseCustomColors(true);
    model->BackColor(0xE0E0E0);
    open();
    const WindowDc screen(window->handle());
    const OwnedMemoryDc dc(CreateCompatibleDC(screen.get()));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), 80, 30));
    const Selected selected(dc.get(), bitmap.get());
    const unsigned before = window->paints();
    send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc.get()), PRF_CLIENT);
    EXPECT_EQ(GetPixel(dc.get(), 40, 28), 0xBBBBBBU);
    EXPECT_EQ(GetPixel(dc.get(), 40, 0), 0x606060U);
    EXPECT_EQ(window->paints(), before);
}

TEST_F(IsButtonWindowTest, TenThousandRandomSequences) {
    model->Move({150, 150, 450, 300});
    model->Caption("x");
    model->ToolTip("tip");
    open();
    std::mt19937 random(20);
    const auto pick = [&](unsigned count) { return random() % count; };
    send(WM_MOUSEMOVE, 0, insidePoint);
    send(WM_MOUSELEAVE);
    // The recorded tips count none: every handle alive now is still alive at the end, no more.
    const int before = liveHandles();
    int wrong = 0;
    for (int sequence = 0; sequence < 10000; ++sequence) {
        for (unsigned inputs = 1 + pick(5); inputs > 0; --inputs) {
            const LPARAM at = pick(3) ? insidePoint : outsidePoint;
            const LPARAM flags = pick(4) ? 0 : repeated;
            constexpr WPARAM keys[] = {VK_SPACE, VK_RETURN, VK_TAB, 'A'};
            switch (pick(20)) {
                case 0:
                case 1: send(WM_LBUTTONDOWN, MK_LBUTTON, at); break;
                case 2:
                case 3: send(WM_LBUTTONUP, 0, at); break;
                case 4: send(WM_LBUTTONDBLCLK, MK_LBUTTON, at); break;
                case 5: send(WM_RBUTTONUP, 0, at); break;
                case 6:
                case 7: send(WM_MOUSEMOVE, 0, at); break;
                case 8:
                case 9: send(WM_MOUSELEAVE); break;
                case 10: send(WM_KEYDOWN, keys[pick(4)], flags); break;
                case 11: send(WM_KEYUP, keys[pick(4)]); break;
                case 12: send(WM_CHAR, keys[pick(4)], flags); break;
                case 13: SetFocus(pick(2) ? window->handle() : form.handle()); break;
                case 14: SetCapture(form.handle()); break;
                case 15: ReleaseCapture(); break;
                case 16: model->Enabled(pick(4) != 0); break;
                case 17: model->ButtonType(static_cast<int>(pick(2))); break;
                case 18: model->Value(pick(2) != 0); break;
                default:
                    if (pick(8) == 0)
                        model->Style(static_cast<int>(pick(13)));
                    else
                        send(pick(2) ? WM_THEMECHANGED : WM_SYSCOLORCHANGE);
                    break;
            }
            const int state = static_cast<int>(model->visualState());
            wrong += state < 1 || state > 4;
            wrong += !model->Enabled() && state != 4;
        }
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
