#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "app/browser/browser_site_win32.h"
#include "app/browser/stand_in_document_win32.h"

namespace velvox {

/// The system's web browser control, embedded in a window for the length of this object's life.
class BrowserControl {
 public:
    /// Throws RuntimeFailure (Platform) when the system has no such control.
    BrowserControl(HWND window, BrowserHost& host, StandInListener& listener);
    BrowserControl(const BrowserControl&) = delete;
    BrowserControl& operator=(const BrowserControl&) = delete;
    ~BrowserControl();

    /// Throws RuntimeFailure (Platform) when the navigation cannot be started.
    void navigate(std::string_view address);
    void stop() noexcept;
    std::string locationUrl() const;
    bool offline() const noexcept;

    /// Fills a rectangle of the window, in pixels.
    void place(const RECT& bounds) noexcept;
    void show(bool visible) noexcept;

    /// Whether pages are rendered; otherwise documents only arrive.
    bool rendersPages() const noexcept { return !standIn_; }

 private:
    void embed(HWND window);
    void release() noexcept;

    OleScope ole_;
    std::unique_ptr<StandInRegistration> standIn_;
    ComPtr<BrowserSite> site_;
    ComPtr<BrowserEvents> events_;
    ComPtr<IWebBrowser2> browser_;
    ComPtr<IConnectionPoint> connection_;
    DWORD cookie_ = 0;
    HWND window_ = nullptr;  // the control's own, borrowed
};

}  // namespace velvox
