// The text box on the screen: what its EDIT does of what the model says, and the other way round.
#include "controls/xp_text_box_win32.h"

#include <gtest/gtest.h>

#include "base/system_win32.h"
#include "base/twips.h"

namespace velvox {
namespace {

class Host : public SystemControl {
 public:
    Host() {
        WindowRequest request;
        request.className = L"STATIC";
        request.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE;
        request.bounds = {40, 40, 440, 240};
        create(request);
    }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

class XPTextBoxWindowTest : public testing::Test {
 protected:
    XPTextBoxWindowTest() { box.Move({150, 150, 3000, 375}); }

    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(edit, message, wParam, lParam);
    }
    void type(std::wstring_view characters) const {
        for (const wchar_t c : characters) send(WM_CHAR, c);
    }
    DWORD style() const { return static_cast<DWORD>(GetWindowLongW(edit, GWL_STYLE)); }

    Host host;
    XPTextBox box{"linkin", twipsPerInch / screenDpi()};
    XPTextBoxWindow window{box, host.handle(), 7};
    HWND edit = window.editHandle();
};

constexpr const char* threeBytes = "\xE1\xBA\xBF";

TEST_F(XPTextBoxWindowTest, EditFollowsTheBox) {
    box.Text(std::string("a") + threeBytes);
    EXPECT_EQ(windowText(edit), box.Text());
    box.Alignment(1);
    EXPECT_EQ(style() & (ES_RIGHT | ES_CENTER), DWORD{ES_RIGHT});
    box.Alignment(2);
    EXPECT_EQ(style() & (ES_RIGHT | ES_CENTER), DWORD{ES_CENTER});
    box.MaxLength(5);
    EXPECT_EQ(send(EM_GETLIMITTEXT), 5);
    box.PasswordChar("*");
    EXPECT_EQ(send(EM_GETPASSWORDCHAR), '*');
    box.PasswordChar("");
    EXPECT_EQ(send(EM_GETPASSWORDCHAR), 0);

    box.Enabled(false);
    EXPECT_FALSE(IsWindowEnabled(edit));
    EXPECT_TRUE(IsWindowEnabled(window.handle()));
    box.Enabled(true);
    EXPECT_TRUE(IsWindowEnabled(edit));
    box.Locked(true);
    EXPECT_TRUE(style() & ES_READONLY);
    EXPECT_FALSE(IsWindowEnabled(edit)) << "a locked box disables what it stands in";
    box.Locked(false);
    EXPECT_FALSE(style() & ES_READONLY);
    EXPECT_TRUE(IsWindowEnabled(edit));
}

TEST_F(XPTextBoxWindowTest, TypingAndSelectingReachTheBox) {
    int changes = 0;
    box.Change = [&] { ++changes; };
    type(L"a\x1EBF");
    EXPECT_EQ(box.Text(), std::string("a") + threeBytes);
    EXPECT_EQ(changes, 2);
    // Places are bytes here and UTF-16 units there.
    send(EM_SETSEL, 1, 2);
    EXPECT_EQ(box.SelStart(), 1);
    EXPECT_EQ(box.SelLength(), 3);
    EXPECT_EQ(box.SelText(), threeBytes);
    box.SelText("b");
    EXPECT_EQ(windowText(edit), "ab");
    EXPECT_EQ(changes, 3);
    box.Text(threeBytes + std::string("xy"));
    EXPECT_EQ(changes, 4) << "once, whoever sets the text";
    box.SelStart(3);
    box.SelLength(1);
    EXPECT_EQ(send(EM_GETSEL), MAKELRESULT(1, 2));

    SetFocus(window.handle());
    EXPECT_EQ(GetFocus(), edit);
    SetFocus(host.handle());
    box.Focus();
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(send(EM_GETSEL), MAKELRESULT(0, 3));
}

TEST_F(XPTextBoxWindowTest, HandlersHearOfKeysAndThePointer) {
    box.KeyPress = [](std::int16_t& key) {
        if (key == 'a') key = 'b';
        if (key == 'x') key = 0;
        if (key == 0x1EBF) key = 'e';
    };
    type(L"axc\x1EBF");
    EXPECT_EQ(box.Text(), "bce");

    std::string events;
    box.Click = [&] { events += "click "; };
    box.DblClick = [&] { events += "double "; };
    box.MouseMove = [&](int button, int shift, float x, float y) {
        events += std::to_string(button) + ' ' + std::to_string(shift) + ' ';
        EXPECT_EQ(toPixels(static_cast<int>(x), screenDpi()), 20);
        EXPECT_EQ(toPixels(static_cast<int>(y), screenDpi()), 5);
    };
    const LPARAM at = MAKELPARAM(20, 5);
    send(WM_MOUSEMOVE, MK_LBUTTON | MK_RBUTTON | MK_SHIFT | MK_CONTROL, at);
    send(WM_LBUTTONDOWN, MK_LBUTTON, at);
    send(WM_LBUTTONUP, 0, at);
    send(WM_LBUTTONDBLCLK, MK_LBUTTON, at);
    EXPECT_EQ(events, "3 3 click double ");
}

TEST_F(XPTextBoxWindowTest, FrameIsOnePixelOnTheLastRowsAndColumns) {
    RECT client;
    GetClientRect(window.handle(), &client);
    const WindowDc screen(nullptr);
    const OwnedMemoryDc memory(CreateCompatibleDC(screen.get()));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), client.right, client.bottom));
    const Selected selected(memory.get(), bitmap.get());
    const auto expectLook = [&] {
        SendMessageW(window.handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory.get()),
                     PRF_CLIENT);
        const auto at = [&](int x, int y) {
            return static_cast<Rgb>(GetPixel(memory.get(), x, y));
        };
        const int right = client.right - 1;
        const int bottom = client.bottom - 1;
        for (const POINT p : {POINT{0, 0}, POINT{right, 0}, POINT{0, bottom}, POINT{right, bottom},
                              POINT{9, 0}, POINT{9, bottom}, POINT{0, 9}, POINT{right, 9}})
            EXPECT_EQ(at(p.x, p.y), rgb(127, 157, 185)) << p.x << ' ' << p.y;
        for (const POINT p : {POINT{1, 1}, POINT{2, 9}, POINT{right - 1, 9}, POINT{9, bottom - 2}})
            EXPECT_EQ(at(p.x, p.y), rgb(240, 232, 224)) << p.x << ' ' << p.y;
        EXPECT_EQ(at(3, 3), rgb(255, 255, 255));
        EXPECT_EQ(at(right - 3, bottom - 3), rgb(255, 255, 255));
    };
    expectLook();
    box.Enabled(false);
    expectLook();
}

TEST_F(XPTextBoxWindowTest, ToolTipIsThereWhileItHasAText) {
    EXPECT_EQ(window.toolTip(), nullptr);
    for (const char* text : {"first", "a && b"}) {
        box.ToolTipText(text);
        ASSERT_TRUE(window.toolTip());
        EXPECT_EQ(SendMessageW(window.toolTip(), TTM_GETTOOLCOUNT, 0, 0), 1);
        wchar_t shown[80]{};
        TTTOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V1_SIZE;
        tool.hwnd = window.handle();
        tool.uId = reinterpret_cast<UINT_PTR>(edit);
        tool.lpszText = shown;
        SendMessageW(window.toolTip(), TTM_GETTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
        EXPECT_EQ(narrow(shown), text);
    }
    const HWND tip = window.toolTip();
    box.Locked(true);
    EXPECT_EQ(window.toolTip(), tip) << "made anew for another text alone";
    box.ToolTipText("");
    EXPECT_EQ(window.toolTip(), nullptr);
    EXPECT_FALSE(IsWindow(tip));
}

}  // namespace
}  // namespace velvox
