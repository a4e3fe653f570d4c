#include "base/window_win32.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/system_win32.h"

namespace velvox {
namespace {

class Probe : public Window {
 public:
    explicit Probe(bool fails = false) : fails_(fails) {
        registerWindowClass(L"VelvoxProbe");
        WindowRequest request;
        request.className = L"VelvoxProbe";
        create(request);
    }

    UINT last = 0;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM, LPARAM) override {
        last = message;
        if (message == WM_APP && fails_) throw std::runtime_error("the handler failed");
        if (message == WM_APP) return 42;
        return std::nullopt;
    }

    bool fails_;
};

TEST(WindowTest, ExceptionsBecomeOneReportAndTheWindowGoesOn) {
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    const Probe window(true);
    EXPECT_EQ(SendMessageW(window.handle(), WM_APP, 0, 0), 0);
    EXPECT_EQ(reported, "the handler failed");
    EXPECT_TRUE(IsWindow(window.handle()));
    setFailureReporter({});
}

TEST(WindowTest, HandleIsGoneAfterDestructionFromOutside) {
    const Probe window;
    EXPECT_EQ(SendMessageW(window.handle(), WM_APP, 0, 0), 42);
    DestroyWindow(window.handle());
    EXPECT_EQ(window.last, static_cast<UINT>(WM_NCDESTROY));
    EXPECT_EQ(window.handle(), nullptr);
}

TEST(WindowTest, OwnersReleaseExactlyOnce) {
    const int before = liveHandles();
    {
        OwnedBrush a(CreateSolidBrush(0));
        OwnedBrush b(std::move(a));
        EXPECT_EQ(liveHandles(), before + 1);
        b.reset(CreateSolidBrush(1));
        EXPECT_EQ(liveHandles(), before + 1);
        DeleteObject(b.release());
    }
    EXPECT_EQ(liveHandles(), before);
}

}  // namespace
}  // namespace velvox
