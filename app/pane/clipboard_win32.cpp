#include "app/pane/clipboard_win32.h"

#include <cstring>

#include "base/owned_win32.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

void freeGlobal(HGLOBAL memory) noexcept {
    GlobalFree(memory);
}

// The pair OpenClipboard and CloseClipboard. Another program may hold the clipboard for a moment.
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
