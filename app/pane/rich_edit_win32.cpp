#include "app/pane/rich_edit_win32.h"

#include <richedit.h>

#include <algorithm>
#include <cstring>

#include "base/library_win32.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

struct Unread {
    std::string_view text;
};

__attribute__((force_align_arg_pointer)) DWORD CALLBACK readMore(DWORD_PTR cookie, LPBYTE buffer,
                                                                 LONG size, LONG* read) noexcept {
    auto& unread = *reinterpret_cast<Unread*>(cookie);
    const auto count = std::min(static_cast<std::size_t>(size), unread.text.size());
    std::memcpy(buffer, unread.text.data(), count);
    unread.text.remove_prefix(count);
    *read = static_cast<LONG>(count);
    return 0;
}

}  // namespace

// The library is never unloaded, because its window procedure must outlive every window.
const wchar_t* richEditClass() {
    static const wchar_t* const name = [] {
        if (loadSystemLibrary(L"msftedit.dll")) return L"RICHEDIT50W";
        if (!loadSystemLibrary(L"riched20.dll")) throwLastError("LoadLibrary of riched20");
        return L"RichEdit20W";
    }();
    return name;
}

void streamRichText(HWND control, std::string_view rtf) {
    Unread unread{rtf};
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&unread), 0, &readMore};
    SendMessageW(control, EM_STREAMIN, SF_RTF | SFF_SELECTION, reinterpret_cast<LPARAM>(&stream));
}

void formatSelectionAsLink(HWND control, bool link) {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_LINK;
    format.dwEffects = link ? CFE_LINK : 0;
    SendMessageW(control, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

// A read-only text needs no caret, which looks like damage over the first letter. The control
// creates a caret in response to many messages, so this is called after each message.
void destroyCaret(HWND control) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (GetGUIThreadInfo(GetCurrentThreadId(), &thread) && thread.hwndCaret == control)
        DestroyCaret();
}

void setSelection(HWND control, std::size_t begin, std::size_t end) {
    CHARRANGE range{static_cast<LONG>(begin), static_cast<LONG>(end)};
    SendMessageW(control, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

}  // namespace velvox
