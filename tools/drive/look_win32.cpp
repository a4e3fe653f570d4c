#include "tools/drive/look_win32.h"

#include "base/system_win32.h"
#include "tools/drive/window_path_win32.h"

namespace velvox::drive {
namespace {

std::string flag(bool value) {
    return value ? " 1" : " 0";
}

std::string boundsOf(HWND window) {
    RECT r{};
    GetWindowRect(window, &r);
    return ' ' + std::to_string(r.left) + ' ' + std::to_string(r.top) + ' ' +
           std::to_string(r.right - r.left) + ' ' + std::to_string(r.bottom - r.top);
}

// Popups of one program: its menus, drop-down lists and message boxes.
struct Popups {
    DWORD process = 0;
    bool menu = false;
    bool list = false;
    std::string boxes;
};

__attribute__((force_align_arg_pointer)) BOOL CALLBACK addPopup(HWND top, LPARAM found) noexcept {
    auto& popups = *reinterpret_cast<Popups*>(found);
    DWORD process = 0;
    GetWindowThreadProcessId(top, &process);
    if (process != popups.process || !IsWindowVisible(top)) return TRUE;
    try {
        const std::string name = windowClass(top);
        if (name == "#32768") popups.menu = true;
        if (name == "ComboLBox") popups.list = true;
        if (name != "#32770") return TRUE;
        // InternalGetWindowText sends no message, so it works while the program is busy.
        wchar_t title[200]{};
        InternalGetWindowText(top, title, ARRAYSIZE(title));
        wchar_t text[400]{};
        const HWND label = GetDlgItem(top, 0xFFFF);
        if (label) InternalGetWindowText(label, text, ARRAYSIZE(text));
        popups.boxes += "\nbox " + narrow(title) + ": " + narrow(text);
    } catch (const std::exception&) {  // the window was destroyed meanwhile
    }
    return TRUE;
}

__attribute__((force_align_arg_pointer)) BOOL CALLBACK addControl(HWND child,
                                                                  LPARAM text) noexcept {
    const int id = GetDlgCtrlID(child);
    if (id <= 1) return TRUE;
    try {
        *reinterpret_cast<std::string*>(text) += "\ncontrol " + std::to_string(id) +
                                                 flag(IsWindowVisible(child)) +
                                                 flag(IsWindowEnabled(child)) + boundsOf(child);
    } catch (const std::exception&) {  // without memory the control is left out
    }
    return TRUE;
}

}  // namespace

std::string look(HWND main) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(main, nullptr), &info);
    Popups popups;
    GetWindowThreadProcessId(main, &popups.process);
    EnumWindows(addPopup, reinterpret_cast<LPARAM>(&popups));
    const HWND focus = info.hwndFocus;
    std::string text = "main" + flag(IsWindowVisible(main)) + flag(IsWindowEnabled(main)) +
                       flag(IsIconic(main)) + boundsOf(main);
    text += "\nmode" + flag(popups.menu) + flag(info.flags & GUI_INMOVESIZE) + flag(popups.list) +
            flag(info.hwndCapture != nullptr);
    text += "\nfocus " + std::to_string(focus ? GetDlgCtrlID(focus) : 0) + ' ' +
            std::to_string(focus ? GetDlgCtrlID(GetParent(focus)) : 0);
    text += popups.boxes;
    EnumChildWindows(main, addControl, reinterpret_cast<LPARAM>(&text));
    return text;
}

}  // namespace velvox::drive
