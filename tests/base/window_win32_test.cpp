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

class Button : public SystemControl {
 public:
    Button() {
        WindowRequest request;
        request.className = L"BUTTON";
        create(request);
    }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

int& accessViolations() {
    static int count = 0;
    return count;
}

__attribute__((force_align_arg_pointer)) LONG CALLBACK countViolation(EXCEPTION_POINTERS* raised) {
    accessViolations() += raised->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION;
    return EXCEPTION_CONTINUE_SEARCH;
}

// The system swallows a fault inside a callback, so it has to be looked for: the last messages of
// a window once went to the handler of a derived class that was gone.
TEST(WindowTest, NothingIsDispatchedToAnObjectBeingDestroyed) {
    void* const handler = AddVectoredExceptionHandler(1, &countViolation);
    {
        const Probe window;
        const Button button;
    }
    RemoveVectoredExceptionHandler(handler);
    EXPECT_EQ(accessViolations(), 0);
}

}  // namespace
}  // namespace velvox
