// The container with real bars, real content and the real focus.
#include "controlkit/scroll_container_win32.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/system_win32.h"
#include "tests/support/window_fixture_win32.h"

namespace velvox {
namespace {

class Child : public SystemControl {
 public:
    Child(HWND parent, const wchar_t* className, const RECT& bounds, DWORD style = 0) {
        create({.className = className,
                .style = WS_CHILD | WS_VISIBLE | style,
                .bounds = bounds,
                .parent = parent});
    }

    std::function<void(UINT)> seen;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        if (seen) seen(message);
        return std::nullopt;
    }
};

class ScrollContainerTest : public testing::Test {
 protected:
    ScrollContainerTest() {
        container.create(form.handle(), {0, 0, 200, 100});
        content = std::make_unique<Child>(container.view(), L"STATIC", RECT{0, 0, 500, 400});
        container.setContent(content->handle());
    }

    LRESULT wheel(HWND at, int notches, WORD keys = 0) {
        return SendMessageW(at, WM_MOUSEWHEEL, MAKEWPARAM(keys, -120 * notches), 0);
    }
    bool isAt(LONG x, LONG y) const {
        POINT corner{};
        MapWindowPoints(content->handle(), container.view(), &corner, 1);
        const POINT at = container.position();
        return at.x == x && at.y == y && corner.x == -x && corner.y == -y;
    }
    static bool shows(const ScrollBarWindow& bar) {
        return (GetWindowLongW(bar.hWnd(), GWL_STYLE) & WS_VISIBLE) != 0;
    }
    const int unit = scaled(48);  // distance of one notch of the wheel

    TestForm form{{100, 100, 500, 500}};
    tsScrollContainer container;
    std::unique_ptr<Child> content;
};

TEST_F(ScrollContainerTest, BarsFollowContentAndSizeAndTheContentFollowsThem) {
    const SIZE view = container.viewSize();
    ASSERT_TRUE(shows(container.vertical()) && shows(container.horizontal()));
    EXPECT_EQ(container.vertical().Max(), 400 - view.cy);
    EXPECT_EQ(container.vertical().LargeChange(), view.cy);
    EXPECT_EQ(container.horizontal().Max(), 500 - view.cx);
    int scrolled = 0;
    container.Scroll = [&] { ++scrolled; };
    container.scrollTo({100, 150});
    EXPECT_TRUE(isAt(100, 150));
    EXPECT_EQ(scrolled, 1);

    SetWindowPos(container.hWnd(), nullptr, 0, 0, 300, 150, SWP_NOMOVE);
    EXPECT_TRUE(isAt(100, 150)) << "resizing keeps the place";
    SetWindowPos(content->handle(), nullptr, 0, 0, 350, 400, SWP_NOMOVE);
    EXPECT_TRUE(isAt(350 - container.viewSize().cx, 150)) << "as distant as there is content";
    const int beside = 350 + scaled(17) + scaled(1);
    SetWindowPos(container.hWnd(), nullptr, 0, 0, beside, 380, SWP_NOMOVE);
    EXPECT_FALSE(shows(container.horizontal()));
    EXPECT_TRUE(isAt(0, 400 - container.viewSize().cy));
    SetWindowPos(container.hWnd(), nullptr, 0, 0, beside - 1, 380, SWP_NOMOVE);
    EXPECT_TRUE(shows(container.horizontal())) << "for the room that the vertical bar takes";
    for (const SIZE size : {SIZE{0, 0}, {1, 1}, {10, 200}, {200, 10}})
        SetWindowPos(container.hWnd(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE);

    SetFocus(container.vertical().hWnd());
    content.reset();
    EXPECT_FALSE(shows(container.vertical()) || shows(container.horizontal()));
    EXPECT_EQ(GetFocus(), form.handle()) << "not on a bar that does not show";
}

TEST_F(ScrollContainerTest, WheelAndKeysReachItThroughTheContent) {
    const Child inner(content->handle(), L"STATIC", {10, 10, 20, 20});
    wheel(inner.handle(), 2);
    EXPECT_TRUE(isAt(0, 2 * unit));
    wheel(inner.handle(), 1, MK_SHIFT);
    SendMessageW(container.view(), WM_MOUSEHWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_TRUE(isAt(2 * unit, 2 * unit));
    const auto key = [&](WPARAM code) { SendMessageW(container.view(), WM_KEYDOWN, code, 0); };
    key(VK_END);
    key(VK_LEFT);
    EXPECT_TRUE(isAt(2 * unit - scaled(16), 400 - container.viewSize().cy));
    key(VK_HOME);
    key(VK_NEXT);
    EXPECT_EQ(container.position().y,
              std::min(container.viewSize().cy, 400 - container.viewSize().cy));

    // A container inside another container handles the wheel only if it can scroll.
    const Child outerContent(container.view(), L"STATIC", {0, 0, 100, 1000});
    tsScrollContainer inside;
    inside.create(outerContent.handle(), {0, 0, 90, 90});
    container.setContent(outerContent.handle());
    container.scrollTo({0, 0});
    wheel(inside.view(), 1);
    EXPECT_EQ(container.position().y, unit);
    const Child large(inside.view(), L"STATIC", {0, 0, 10, 500});
    inside.setContent(large.handle());
    wheel(inside.view(), 1);
    EXPECT_EQ(inside.position().y, unit);
    EXPECT_EQ(container.position().y, unit);
}

TEST_F(ScrollContainerTest, AControlThatGetsTheFocusIsScrolledIntoView) {
    const Child distant(content->handle(), L"BUTTON", {400, 300, 450, 320}, WS_TABSTOP);
    const Child first(content->handle(), L"BUTTON", {0, 0, 50, 20}, WS_TABSTOP);
    const Child outside(form.handle(), L"BUTTON", {300, 300, 350, 320}, WS_TABSTOP);
    SetForegroundWindow(form.handle());
    SetFocus(distant.handle());
    const SIZE view = container.viewSize();
    EXPECT_TRUE(isAt(450 - view.cx, 320 - view.cy));
    SetFocus(outside.handle());
    EXPECT_TRUE(isAt(450 - view.cx, 320 - view.cy));
    SetFocus(first.handle());
    EXPECT_TRUE(isAt(0, 0));

    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_LBUTTON] = 0x80;
    SetKeyboardState(keys);
    SetFocus(distant.handle());
    EXPECT_TRUE(isAt(0, 0)) << "nothing moves under a pressed mouse";
    keys[VK_LBUTTON] = 0;
    SetKeyboardState(keys);
}

TEST_F(ScrollContainerTest, ContentThatDrawsItselfMayBeOfAnySize) {
    int sizes = 0;
    content->seen = [&](UINT message) {
        // This content fits only if room is left for a bar. The layout must end nevertheless.
        if (message != WM_SIZE) return;
        container.setDrawnContent(content->handle(), {100, ++sizes % 2 ? 10 : 1000});
    };
    container.setDrawnContent(content->handle(), {100, 1'000'000});
    EXPECT_LT(sizes, 5);
    content->seen = nullptr;
    container.setDrawnContent(content->handle(), {100, 1'000'000});
    RECT size{};
    GetClientRect(content->handle(), &size);
    EXPECT_EQ(size.right, container.viewSize().cx);
    EXPECT_EQ(size.bottom, container.viewSize().cy);
    ValidateRect(content->handle(), nullptr);
    UINT drawn = 0;
    content->seen = [&](UINT message) { drawn += message == WM_PAINT; };
    container.scrollTo({0, 2'000'000});
    EXPECT_EQ(container.position().y, 1'000'000 - container.viewSize().cy);
    EXPECT_GT(drawn, 0U);
    content->seen = nullptr;
}

TEST_F(ScrollContainerTest, NotificationsOfTheContentReachTheContainersParent) {
    struct Owner : Window {
        explicit Owner(HWND parent) {
            create({.className = L"VelvoxTestOwner",
                    .style = WS_CHILD | WS_VISIBLE,
                    .parent = parent});
        }
        std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
            if (message != WM_COMMAND && message != WM_CTLCOLOREDIT) return std::nullopt;
            return message;
        }
    } owner(form.handle());
    tsScrollContainer in;
    in.create(owner.handle(), {0, 0, 100, 100});
    for (const UINT message : {WM_COMMAND, WM_CTLCOLOREDIT})
        EXPECT_EQ(SendMessageW(in.view(), message, 0, 0), static_cast<LRESULT>(message));
}

}  // namespace
}  // namespace velvox
