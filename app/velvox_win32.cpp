#include "app/velvox_win32.h"

#include <commctrl.h>

#include "app/window/form1_win32.h"
#include "app/window/program.h"
#include "base/com_win32.h"
#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {
namespace {

// One box at a time: while it is up, a failing timer or repaint must not stack another on it.
void reportInBox(const wchar_t* introduction, std::string_view text) {
    static bool reporting = false;
    if (reporting) return;
    reporting = true;
    const std::wstring report = std::wstring(introduction) + L"\n\n" + widen(text);
    // Without an active window the box disables the main one all the same.
    MessageBoxW(GetActiveWindow(), report.c_str(), programTitle,
                MB_OK | MB_ICONWARNING | MB_TASKMODAL);
    reporting = false;
}

}  // namespace

int runVelvox(const TransferLimits& limits) {
    setFailureReporter([](std::string_view text) {
        reportInBox(L"Something went wrong, but Velvox goes on:", text);
    });
    try {
        const INITCOMMONCONTROLSEX controls{sizeof controls,
                                            ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
        const OleScope ole;
        MessagePump pump;
        Form1Window window(pump, limits);
        window.show();
        return pump.run();
    } catch (...) {
        setFailureReporter([](std::string_view text) { reportInBox(L"Velvox has to end:", text); });
        reportCurrentFailure();
        return 1;
    }
}

}  // namespace velvox
