#include "tools/drive/look_win32.h"

#include "base/system_win32.h"
#include "tools/drive/window_path_win32.h"

namespace velvox::drive {
namespace {

std::string flag(bool value) {
    return value ? " 1" : " 0";
}

// Returns title and text of a message box. InternalGetWindowText sends no message, so it works
// while the program is busy.
std::string boxText(HWND box) {
    wchar_t title[200]{};
    InternalGetWindowText(box, title, ARRAYSIZE(title));
    wchar_t text[400]{};
    const HWND label = GetDlgItem(box, 0xFFFF);
    if (label) InternalGetWindowText(label, text, ARRAYSIZE(text));
    return narrow(title) + ": " + narrow(text);
}

}  // namespace

std::string look(HWND main) {
    const GUITHREADINFO info = threadOf(main);
    DWORD own = 0;
    GetWindowThreadProcessId(main, &own);
    bool menu = false;
    bool list = false;
    std::string boxes;
    for (const HWND top : windowsBelow(nullptr)) {
        DWORD process = 0;
        GetWindowThreadProcessId(top, &process);
        if (process != own || !IsWindowVisible(top)) continue;
        const std::string name = windowClass(top);
        if (name == "#32768") menu = true;
        if (name == "ComboLBox") list = true;
        if (name == "#32770") boxes += "\nbox " + boxText(top);
    }
    const HWND focus = info.hwndFocus;
    std::string text = "main" + flag(IsWindowVisible(main)) + flag(IsWindowEnabled(main)) +
                       flag(IsIconic(main)) + ' ' + windowBounds(main);
    text += "\nmode" + flag(menu) + flag(info.flags & GUI_INMOVESIZE) + flag(list) +
            flag(info.hwndCapture != nullptr);
    text += "\nfocus " + std::to_string(focus ? GetDlgCtrlID(focus) : 0) + ' ' +
            std::to_string(focus ? GetDlgCtrlID(GetParent(focus)) : 0);
    text += boxes;
    for (const HWND child : windowsBelow(main)) {
        const int id = GetDlgCtrlID(child);
        if (id <= 1) continue;
        text += "\ncontrol " + std::to_string(id) + flag(IsWindowVisible(child)) +
                flag(IsWindowEnabled(child)) + ' ' + windowBounds(child);
    }
    return text;
}

}  // namespace velvox::drive
