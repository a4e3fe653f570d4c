// Velvox on a system whose user has asked for high contrast.
#include <windows.h>

#include "app/velvox_win32.h"
#include "base/system_win32.h"

bool velvox::highContrast() {
    return true;
}

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return velvox::runVelvox({});
}
