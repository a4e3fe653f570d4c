#include "base/clipboard_win32.h"

#include <cstring>
#include <cwchar>

#include "base/owned_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

void freeGlobal(HGLOBAL memory) noexcept {
    GlobalFree(memory);
}

// Opens the clipboard for the length of a scope. Retries, because another program may have it open
// for a moment.
class OpenedClipboard {
 public:
    explicit OpenedClipboard(HWND owner) {
        constexpr int tries = 10;
        constexpr DWORD pauseMs = 10;
        for (int i = 1; !OpenClipboard(owner); ++i) {
            if (i == tries) throwLastError("OpenClipboard");
            Sleep(pauseMs);
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() { CloseClipboard(); }
};

}  // namespace

std::string textOfMemory(HGLOBAL memory) {
    const auto* text = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr;
    if (!text) return {};
    const std::wstring_view all(text, wcsnlen(text, GlobalSize(memory) / sizeof(wchar_t)));
    const struct Unlock {
        HGLOBAL memory;
        ~Unlock() { GlobalUnlock(memory); }
    } unlock{memory};
    return narrow(all);
}

std::optional<std::string> clipboardText(HWND owner) try {
    if (!IsClipboardFormatAvailable(CF_UNICODETEXT)) return std::nullopt;
    const OpenedClipboard clipboard(owner);
    return textOfMemory(GetClipboardData(CF_UNICODETEXT));
} catch (const RuntimeFailure&) {
    return std::nullopt;  // another program has the clipboard open
}

void copyToClipboard(HWND owner, std::string_view text) {
    const std::wstring wide = widen(text);
    const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
    Owned<HGLOBAL, &freeGlobal> memory(GlobalAlloc(GMEM_MOVEABLE, bytes));
    void* place = memory ? GlobalLock(memory.get()) : nullptr;
    if (!place) throwLastError("GlobalAlloc");
    std::memcpy(place, wide.c_str(), bytes);
    GlobalUnlock(memory.get());
    const OpenedClipboard clipboard(owner);
    EmptyClipboard();
    if (!SetClipboardData(CF_UNICODETEXT, memory.get())) throwLastError("SetClipboardData");
    (void)memory.release();
}

}  // namespace velvox
