#include "base/tool_tip_win32.h"

namespace velvox {

HWND createToolTip(HWND owner, DWORD style) {
    const HWND tip = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, style, CW_USEDEFAULT,
                                     CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    if (tip) SetWindowPos(tip, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    return tip;
}

void destroyToolTip(HWND tip) noexcept {
    if (IsWindow(tip)) DestroyWindow(tip);
}

TTTOOLINFOW toolRecord(HWND window, UINT flags, UINT_PTR id) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = flags;
    tool.hwnd = window;
    tool.uId = id;
    return tool;
}

}  // namespace velvox
