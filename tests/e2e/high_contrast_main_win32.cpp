// Velvox with high contrast, which Wine does not report.
#include <windows.h>

#include "app/velvox_win32.h"
#include "base/system_win32.h"

bool velvox::highContrast() {
    return true;
}

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return velvox::runVelvox({});
}
