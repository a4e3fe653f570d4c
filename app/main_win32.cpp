#include <windows.h>

#include "app/velvox_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return velvox::runVelvox({});
}
