#pragma once

#include <memory>

#include "app/browser/browser_control_win32.h"
#include "app/browser/preview_panel_win32.h"
#include "app/form1/web_browser.h"
#include "base/window_win32.h"

namespace velvox {

/// The preview browser: the system's web browser control in a window of ours. Where it can show
/// no page, a panel tells the address arrived at, its type and its size instead.
///
/// `DocumentComplete` is raised from the message loop, never from inside `Navigate`. Its handler
/// may throw, navigate again, or destroy this window. The control is made by the first `Navigate`
/// to a page: until then the blank page is this window's own, and without a control that can be
/// made every other navigation throws.
class WebBrowserWindow : public Window,
                         public WebBrowser,
                         private BrowserHost,
                         private StandInListener {
 public:
    static constexpr UINT answerTimeoutMs = 60'000;

    /// A child window at a place in pixels. A server that has sent no document after
    /// `timeoutMs` is waited for no longer. Throws RuntimeFailure (Platform).
    WebBrowserWindow(HWND parent, const RECT& pixels, int id, UINT timeoutMs = answerTimeoutMs);
    ~WebBrowserWindow() override;

    void Navigate(std::string_view address) override;
    std::string LocationURL() const override;
    bool Offline() const override;

    /// What the panel shows where no page is rendered.
    PreviewContent content() const;

 protected:
    std::optional<LRESULT> onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
    Arrival& arrival() noexcept override { return arrival_; }
    void arrived() override;
    void changed() override;
    void documentFacts(const DocumentFacts& facts) override;

    BrowserControl& control();
    void start();
    void giveUp() noexcept;
    void raise(unsigned number);
    void refresh();
    void paint(HDC dc) const;
    void paintFrame() const;

    UINT timeoutMs_;
    Arrival arrival_;
    std::string requested_;
    DocumentFacts facts_;
    unsigned factsNumber_ = 0;
    PreviewPanel panel_;
    std::unique_ptr<BrowserControl> control_;
    std::unique_ptr<HeaderRequest> headerRequest_;
};

}  // namespace velvox
