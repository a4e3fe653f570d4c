// Velvox with a page timeout of three seconds. Only one test waits for the real timeout of a
// minute.
#include <windows.h>

#include "app/velvox_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return velvox::runVelvox({.time = std::chrono::seconds(3)});
}
