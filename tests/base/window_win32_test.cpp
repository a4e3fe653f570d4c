#include "base/window_win32.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace velvox {
namespace {

class Probe : public Window {
 public:
    Probe() { create({.className = L"VelvoxProbe"}); }

    UINT last = 0;

 private:
    std::optional<LRESULT> onMessage(UINT message, WPARAM fails, LPARAM) override {
        last = message;
        if (message != WM_APP) return std::nullopt;
        if (fails) throw std::runtime_error("the handler failed");
        return 42;
    }
};

TEST(WindowTest, ExceptionsBecomeOneReportAndTheWindowGoesOnToItsEnd) {
    std::string reported;
    setFailureReporter([&](std::string_view text) { reported += text; });
    const Probe window;
    EXPECT_EQ(SendMessageW(window.handle(), WM_APP, TRUE, 0), 0);
    EXPECT_EQ(reported, "the handler failed");
    EXPECT_EQ(SendMessageW(window.handle(), WM_APP, FALSE, 0), 42);
    setFailureReporter({});
    DestroyWindow(window.handle());
    EXPECT_EQ(window.last, static_cast<UINT>(WM_NCDESTROY));
    EXPECT_EQ(window.handle(), nullptr);
}

class Button : public SystemControl {
 public:
    Button() { create({.className = L"BUTTON", .text = {}}); }

 private:
    std::optional<LRESULT> onMessage(UINT, WPARAM, LPARAM) override { return std::nullopt; }
};

int accessViolations = 0;

__attribute__((force_align_arg_pointer)) LONG CALLBACK countViolation(EXCEPTION_POINTERS* raised) {
    accessViolations += raised->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION;
    return EXCEPTION_CONTINUE_SEARCH;
}

// The last messages of a window once reached the message handler of a derived class that was
// already destroyed. The system hides a fault inside a callback, so the test counts access
// violations.
TEST(WindowTest, NothingIsDispatchedToAnObjectBeingDestroyed) {
    void* const handler = AddVectoredExceptionHandler(1, &countViolation);
    {
        const Probe window;
        const Button button;
    }
    RemoveVectoredExceptionHandler(handler);
    EXPECT_EQ(accessViolations, 0);
}

}  // namespace
}  // namespace velvox
