#pragma once

#include <windows.h>

#include "app/form1/desktop.h"
#include "app/window/message_pump_win32.h"

namespace velvox {

/// The system's services. Message boxes appear in front of the window given to setWindow.
class WindowsDesktop : public Desktop {
 public:
    explicit WindowsDesktop(MessagePump& pump) : pump_(pump) {}

    void setWindow(HWND window) noexcept { window_ = window; }

    void yield() override { pump_.yield(); }
    void openAddress(std::string_view address) override;
    void showExclamation(std::string_view text) override;
    std::string dateTimeText() const override;
    std::unique_ptr<XmlHttpRequest> createXmlHttpRequest() override;
    [[noreturn]] void endProgram() override;

 private:
    MessagePump& pump_;
    HWND window_ = nullptr;
};

}  // namespace velvox
