// The push button's window, driven by the messages that the system sends.
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/controls/button/is_button_window_fixture_win32.h"

namespace velvox {
namespace {

using enum ButtonState;

TEST_F(IsButtonWindowTest, SequencesRaiseTheirEventsAndEndInTheirState) {
    const struct {
        const char* steps;
        const char* events;
        ButtonState state;
    } rows[] = {
        // A release inside the button is a click, also for the second press of a double click.
        {"press release double release", "CC", Hot},
        {"press release-off", "", Normal},
        {"enter press release-off", "EL", Normal},
        // A release without a press on the button is no click. A right click is no click either.
        {"press release release right", "C", Hot},
        {"right release", "", Normal},
        // A lost capture or focus ends the press without a click.
        {"press captured released release", "", Normal},
        {"press blur release", "", Normal},
        // While the pointer is dragged off, the button does not look pressed. A release outside
        // ends the hover, because during a capture WM_MOUSELEAVE is held back or comes too early.
        {"enter enter leave leave", "EL", Normal},
        {"enter press drag-off leave", "E", Hot},
        {"enter press drag-off enter", "E", Pressed},
        {"enter press leave drag-off release-off", "EL", Normal},
        {"enter disable", "EL", Disabled},
        {"enter hide", "EL", Normal},
        // A key presses the button once per stroke. A stroke that began in another window does
        // nothing.
        {"focus space held-space", "C", Pressed},
        {"focus space space-up blur", "C", Normal},
        {"focus space blur focus space-up", "C", Normal},
        // A press ends when its release can no longer arrive, and is not resumed.
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
    model->Caption("Stop");
    EXPECT_EQ(windowText(window->handle()), "Stop");
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
    const int line = thinLine();
    const int lines = (client().cy + line - 1) / line;
    EXPECT_EQ(print.at(client().cx / 2, (lines - 2) * line), 0xBBBBBB);
    EXPECT_EQ(print.at(client().cx / 2, 0), 0x606060);
    EXPECT_EQ(window->paints(), after);
    for (const int twips : {1200, 3000}) {
        model->Width(twips);
        const int right = client().cx - 1;
        EXPECT_FALSE(regionHolds(0, 0) || regionHolds(right, 0) ||
                     regionHolds(right, client().cy - 1));
        EXPECT_TRUE(regionHolds(line, 0) && regionHolds(right - line, 0) && regionHolds(0, 15));
    }
    model->Style(0);
    EXPECT_TRUE(regionHolds(0, 0));
}

// Compares the screen with a printed picture, within the window's region.
TEST_F(IsButtonWindowTest, AResizeRepaintsTheWholeFace) {
    for (int style = 0; style <= 10; ++style) {
        model->Style(style);
        model->Move({150, 150, 1200, 450});
        open();
        for (const Bounds& place : {Bounds{150, 150, 1500, 600}, Bounds{150, 150, 900, 510}}) {
            model->Move(place);
            const auto [width, height] = client();
            clsVirtualDC shown;
            shown.CreateMyDC(width, height);
            BitBlt(shown.hDC(), 0, 0, width, height, WindowDc(window->handle()).get(), 0, 0,
                   SRCCOPY);
            const ClientPrint print(window->handle());
            int stale = 0;
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    stale += regionHolds(x, y) && shown.GetPixel(x, y) != print.at(x, y);
            EXPECT_EQ(stale, 0) << "style " << style << ", width " << place.width;
        }
    }
}

}  // namespace
}  // namespace velvox
