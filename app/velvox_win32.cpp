#include "app/velvox_win32.h"

#include <commctrl.h>

#include "app/form1/form1_design.h"
#include "app/window/failure_box_win32.h"
#include "app/window/form1_win32.h"
#include "base/com_win32.h"
#include "base/library_win32.h"
#include "base/system_win32.h"
#include "base/window_win32.h"

namespace velvox {

int runVelvox(const TransferLimits& limits) {
    searchSystemFolderOnly();
    setFailureReporter([](std::string_view text) {
        showFailureBox(L"Something went wrong, but Velvox goes on:", text);
    });
    try {
        const INITCOMMONCONTROLSEX controls{sizeof controls,
                                            ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
        const OleScope ole;
        const Bounds form = designOf("Form1").bounds;
        fitScreenDpi({form.width, form.height});
        MessagePump pump;
        Form1Window window(pump, limits);
        window.show();
        return pump.run();
    } catch (...) {
        setFailureReporter(
            [](std::string_view text) { showFailureBox(L"Velvox has to end:", text); });
        reportCurrentFailure();
        return 1;
    }
}

}  // namespace velvox
