// Velvox that gives a page three seconds: the minute of the real one is waited for once.
#include <windows.h>

#include "app/velvox_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return velvox::runVelvox({.time = std::chrono::seconds(3)});
}
