#pragma once

#include <functional>
#include <string_view>

#include "base/com_win32.h"

#include <exdisp.h>

#include "app/browser/browser_events_win32.h"
#include "app/browser/browser_site_win32.h"

namespace velvox {

/// The system's web browser control, embedded in a window while this object exists.
class BrowserControl {
 public:
    /// Creates the control hidden. Its events go to `tracker`, and `changed` is called after each
    /// event. Throws RuntimeFailure (Platform) if the system lacks the control or an HTML engine.
    BrowserControl(HWND window, NavigationTracker& tracker, std::function<void()> changed);
    BrowserControl(const BrowserControl&) = delete;
    BrowserControl& operator=(const BrowserControl&) = delete;
    ~BrowserControl();

    /// Throws RuntimeFailure (Platform) if the navigation cannot be started.
    void navigate(std::string_view address);

    /// Moves the control to a rectangle of the window, in pixels.
    void place(const RECT& bounds) noexcept;
    void show(bool visible) noexcept;

 private:
    void embed(HWND window);
    void release() noexcept;

    OleScope ole_;
    ComPtr<IOleClientSite> site_;
    ComPtr<BrowserEvents> events_;
    ComPtr<IWebBrowser2> browser_;
    ComPtr<IConnectionPoint> connection_;
    DWORD cookie_ = 0;
    HWND window_ = nullptr;  // the control's window, borrowed
};

}  // namespace velvox
