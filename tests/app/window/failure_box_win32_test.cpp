// A failure is reported even if no memory is left.
#include "app/window/failure_box_win32.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "app/window/program.h"
#include "base/window_win32.h"

namespace {
bool memoryIsLeft = true;
}  // namespace

// Not inlined, because the compiler would report operator new and free() as a mismatched pair.
__attribute__((noinline)) void* operator new(std::size_t size) {
    void* const memory = memoryIsLeft ? std::malloc(size > 0 ? size : 1) : nullptr;
    if (!memory) throw std::bad_alloc();
    return memory;
}
__attribute__((noinline)) void operator delete(void* memory) noexcept {
    std::free(memory);
}
__attribute__((noinline)) void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace velvox {
namespace {

wchar_t boxText[2000];

// Closes the message box. The box's own message loop calls this timer procedure.
__attribute__((force_align_arg_pointer)) void CALLBACK closeBox(HWND, UINT, UINT_PTR id, DWORD) {
    const HWND box = FindWindowW(L"#32770", programTitle);
    if (!box) return;
    constexpr int messageText = 0xFFFF;
    GetDlgItemTextW(box, messageText, boxText, ARRAYSIZE(boxText));
    KillTimer(nullptr, id);
    EndDialog(box, IDOK);
}

std::wstring reportedWithoutMemory(const char* failure) {
    SetTimer(nullptr, 0, 20, &closeBox);
    try {
        throw std::runtime_error(failure);
    } catch (...) {
        memoryIsLeft = false;
        reportCurrentFailure();
        memoryIsLeft = true;
    }
    return boxText;
}

TEST(FailureBoxTest, NeedsNoMemory) {
    setFailureReporter([](std::string_view text) { showFailureBox(L"It failed:", text); });
    EXPECT_EQ(reportedWithoutMemory("a \xC3\xA9"), L"It failed:\n\na \xE9");
    EXPECT_EQ(reportedWithoutMemory(std::string(5000, 'x').c_str()).size(), 1024U);
    setFailureReporter({});
}

}  // namespace
}  // namespace velvox
