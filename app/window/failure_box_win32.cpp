#include "app/window/failure_box_win32.h"

#include <windows.h>

#include <algorithm>

#include "app/window/program.h"

namespace velvox {

void showFailureBox(const wchar_t* introduction, std::string_view text) noexcept {
    static bool open = false;
    if (open) return;
    open = true;
    // Of bytes and of UTF-16 characters: no byte becomes more than one. Longer text is cut off.
    constexpr int capacity = 1024;
    wchar_t report[capacity + 1]{};
    lstrcpynW(report, introduction, capacity / 2);
    lstrcatW(report, L"\n\n");
    const int used = lstrlenW(report);
    const int room = capacity - used;
    const int bytes = static_cast<int>(std::min(text.size(), static_cast<std::size_t>(room)));
    MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, report + used, room);
    // MB_TASKMODAL disables the main window even when no window is active.
    MessageBoxW(GetActiveWindow(), report, programTitle, MB_OK | MB_ICONWARNING | MB_TASKMODAL);
    open = false;
}

}  // namespace velvox
