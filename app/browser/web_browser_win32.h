#pragma once

#include <memory>

#include "app/browser/browser_control_win32.h"
#include "app/browser/preview_panel_win32.h"
#include "app/form1/web_browser.h"
#include "app/net/http_transfer_win32.h"
#include "base/window_win32.h"

namespace velvox {

/// The preview browser. It resolves an address with a transfer that ends at the header of the final
/// reply: this is the arrival. The system's web browser control then shows the document if the
/// system has an HTML engine that renders documents of its type. Otherwise the preview area shows
/// the document's address, type and size.
///
/// `DocumentComplete` is raised from the message loop, never from inside `Navigate`. Its handler
/// may throw, navigate again, or destroy this window.
class WebBrowserWindow : public Window, public WebBrowser {
 public:
    /// Creates a child window with bounds in pixels. `session` must outlive it. `limits.time` is
    /// the longest time that a navigation may take. Throws RuntimeFailure (Platform).
    WebBrowserWindow(HWND parent, const RECT& pixels, int id, InternetSession& session,
                     const TransferLimits& limits = {});
    ~WebBrowserWindow() override;

    void Navigate(std::string_view address) override;
    std::string LocationURL() const override { return tracker_.location(); }
    /// Always false, because the browser has no content that it can show without the network.
    bool Offline() const override { return false; }

    /// Called when a run has ended. If the run has not navigated, the preview area says that there
    /// is no preview.
    void runEnded();

    /// What the preview area shows while no page is rendered.
    PreviewContent content() const { return tracker_.content(); }

 protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    void load(unsigned number, std::string_view address);
    void advance(unsigned number);
    void changed() noexcept;
    void refresh();
    void openView();
    void giveUp();
    void paint(HDC dc) const;
    void paintFrame() const;

    InternetSession& session_;
    TransferLimits limits_;
    NavigationTracker tracker_;
    unsigned number_ = 0;  ///< number of the current navigation
    std::unique_ptr<HttpTransfer> transfer_;
    std::unique_ptr<BrowserControl> control_;
    PreviewPanel panel_;
};

}  // namespace velvox
