#include "app/browser/web_browser_win32.h"

#include "base/buffered_paint_win32.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr wchar_t className[] = L"WebBrowser";

constexpr UINT stepMessage = WM_APP + 1;  // wParam: the number of the navigation
constexpr UINT changedMessage = WM_APP + 2;

constexpr UINT_PTR patienceTimer = 1;

constexpr int framePixels = 1;  // same width as the frame of the result pane

}  // namespace

WebBrowserWindow::WebBrowserWindow(HWND parent, const RECT& pixels, int id,
                                   InternetSession& session, const TransferLimits& limits)
    : session_(session), limits_(limits) {
    create({.className = className,
            .style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
            .bounds = pixels,
            .parent = parent,
            .id = id});
}

WebBrowserWindow::~WebBrowserWindow() {
    destroy();
}

void WebBrowserWindow::Navigate(std::string_view address) {
    if (!handle()) throw RuntimeFailure(Fault::Platform, "The preview's window is gone");
    transfer_.reset();
    control_.reset();
    number_ = tracker_.start(address);
    if (address == blankAddress)
        tracker_.arrived(number_, std::string(address), {});
    else
        load(number_, address);
    changed();
}

void WebBrowserWindow::runEnded() {
    tracker_.runEnded();
    InvalidateRect(handle(), nullptr, FALSE);
}

void WebBrowserWindow::load(unsigned number, std::string_view address) try {
    transfer_ =
        std::make_unique<HttpTransfer>(session_, address, HttpTransfer::Wants::HeaderOnly, limits_,
                                       StepRecipient{handle(), stepMessage, number});
    SetTimer(handle(), patienceTimer, static_cast<UINT>(limits_.time.count()), nullptr);
} catch (const RuntimeFailure& failure) {
    tracker_.failed(number, failure.what());
}

void WebBrowserWindow::advance(unsigned number) {
    if (!tracker_.awaits(number)) return;
    try {
        if (!transfer_->advance()) return;
        tracker_.arrived(number, transfer_->address(), transfer_->document());
    } catch (const RuntimeFailure& failure) {
        tracker_.failed(number, failure.what());
    }
    transfer_.reset();
    changed();
}

// Posts a message instead of acting at once, because this is also called from inside the browser
// control. Each arrival is announced by a message of its own.
void WebBrowserWindow::changed() noexcept {
    PostMessageW(handle(), changedMessage, 0, 0);
}

void WebBrowserWindow::refresh() {
    if (!tracker_.busy()) KillTimer(handle(), patienceTimer);
    InvalidateRect(handle(), nullptr, FALSE);
    if (tracker_.takeAnnouncement()) {
        // The handler of DocumentComplete shows the link. The message posted here makes this
        // function run again, which then opens the view. A copy of the handler is called, because
        // the handler may destroy this object.
        changed();
        const auto handler = DocumentComplete;
        if (handler) handler();
        return;
    }
    if (const auto address = tracker_.takeOwnNavigation()) return Navigate(*address);
    if (tracker_.wantsView()) openView();
    if (tracker_.viewHasFailed()) control_.reset();
    if (control_) control_->show(tracker_.viewIsShown());
}

void WebBrowserWindow::openView() {
    tracker_.viewOpened();
    const unsigned number = number_;
    try {
        auto control = std::make_unique<BrowserControl>(handle(), tracker_, [this] { changed(); });
        if (number != number_) return;  // creating the control let another navigation begin
        control_ = std::move(control);
        control_->navigate(tracker_.location());
        SetTimer(handle(), patienceTimer, static_cast<UINT>(limits_.time.count()), nullptr);
    } catch (const RuntimeFailure&) {
        // The arrival remains valid: the preview area shows the document's address, type and size.
        if (number == number_) tracker_.viewFailed();
    }
}

void WebBrowserWindow::giveUp() {
    KillTimer(handle(), patienceTimer);
    if (!tracker_.busy()) return;
    if (transfer_)
        tracker_.failed(number_, HttpTransfer::timeoutReason);
    else
        tracker_.viewFailed();
    transfer_.reset();
    changed();
}

void WebBrowserWindow::paint(HDC dc) const {
    const RECT bounds = clientArea(handle());
    const BufferedPaint buffer(dc, bounds);
    panel_.paint(buffer.dc(), bounds, content());
}

void WebBrowserWindow::paintFrame() const {
    const WindowDc dc(handle(), WindowDc::Covers::WholeWindow);
    RECT frame{};
    GetWindowRect(handle(), &frame);
    OffsetRect(&frame, -frame.left, -frame.top);
    FrameRect(dc.get(), &frame, GetSysColorBrush(COLOR_BTNSHADOW));
}

std::optional<LRESULT> WebBrowserWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case stepMessage: advance(wParam); return 0;
        case changedMessage: refresh(); return 0;
        case WM_TIMER:
            if (wParam == patienceTimer) giveUp();
            return 0;
        case WM_SIZE: {
            const RECT bounds = clientArea(handle());
            if (control_) control_->place(bounds);
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        }
        case WM_NCCALCSIZE:
            // lParam points to a RECT or to a structure that starts with one.
            InflateRect(reinterpret_cast<RECT*>(lParam), -framePixels, -framePixels);
            return 0;
        case WM_NCPAINT: paintFrame(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(PaintScope(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_DESTROY:
            transfer_.reset();
            control_.reset();
            return 0;
        default: return std::nullopt;
    }
}

}  // namespace velvox
