// Velvox on a system with an HTML engine, so that the browser control is embedded and navigates.
#include <windows.h>

#include "app/velvox_win32.h"
#include "tests/support/fallback_document_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const velvox::FallbackDocumentRegistration engine;
    return velvox::runVelvox({});
}
