#include "app/window/desktop_win32.h"

#include "app/net/xml_http_request_win32.h"
#include "app/window/program.h"
#include "base/open_address_win32.h"
#include "base/system_win32.h"

namespace velvox {

void WindowsDesktop::openAddress(std::string_view address) {
    velvox::openAddress(window_, address);
}

void WindowsDesktop::showExclamation(std::string_view text) {
    MessageBoxW(window_, widen(text).c_str(), programTitle, MB_OK | MB_ICONEXCLAMATION);
}

std::string WindowsDesktop::dateTimeText() const {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t date[80]{};
    wchar_t time[80]{};
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, ARRAYSIZE(date));
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, ARRAYSIZE(time));
    return narrow(date) + " " + narrow(time);
}

std::unique_ptr<XmlHttpRequest> WindowsDesktop::createXmlHttpRequest() {
    return std::make_unique<MsxmlRequest>();
}

void WindowsDesktop::endProgram() {
    // TerminateProcess runs no clean-up code: the system releases everything. ExitProcess would
    // first end all other threads and then run the clean-up code of libraries, which may wait for a
    // lock that an ended thread still holds.
    if (window_) ShowWindow(window_, SW_HIDE);
    TerminateProcess(GetCurrentProcess(), 0);
    ExitProcess(0);  // never reached; shows the compiler that this does not return
}

}  // namespace velvox
