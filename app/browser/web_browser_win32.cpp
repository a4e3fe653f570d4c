#include "app/browser/web_browser_win32.h"

#include "base/runtime_failure.h"

namespace velvox {
namespace {

constexpr wchar_t className[] = L"WebBrowser";

constexpr UINT arrivedMessage = WM_APP + 1;  // wParam: the number of the navigation
constexpr UINT changedMessage = WM_APP + 2;

constexpr UINT_PTR answerTimer = 1;

constexpr int framePixels = 1;  // as the result pane beside it

constexpr std::string_view blankAddress = "about:blank";

}  // namespace

WebBrowserWindow::WebBrowserWindow(HWND parent, const RECT& pixels, int id, UINT timeoutMs)
    : timeoutMs_(timeoutMs) {
    registerWindowClass(className);
    WindowRequest request;
    request.className = className;
    request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    request.bounds = pixels;
    request.parent = parent;
    request.id = id;
    create(request);
}

WebBrowserWindow::~WebBrowserWindow() {
    destroy();
}

void WebBrowserWindow::Navigate(std::string_view address) {
    if (!handle()) throw RuntimeFailure(Fault::Platform, "The preview's window is gone");
    // A control that is still busy would tell of the old document under the new address (Wine 8
    // does, even after Stop): only closing it ends a navigation.
    if (arrival_.state() != Arrival::State::Arrived) control_.reset();
    requested_ = address;
    arrival_.requested();
    headerRequest_.reset();
    changed();
    if (control_ || requested_ != blankAddress) return start();
    // Nothing heavy is made for the blank page.
    arrival_.beforeNavigate(true, blankAddress);
    if (arrival_.documentComplete(true)) arrived();
}

void WebBrowserWindow::start() {
    SetTimer(handle(), answerTimer, timeoutMs_, nullptr);
    try {
        control().navigate(requested_);
    } catch (...) {
        giveUp();
        // Without the control the window is blank, too.
        if (requested_ != blankAddress) throw;
    }
}

BrowserControl& WebBrowserWindow::control() {
    BrowserHost& host = *this;
    StandInListener& listener = *this;
    if (!control_) control_ = std::make_unique<BrowserControl>(handle(), host, listener);
    return *control_;
}

void WebBrowserWindow::giveUp() noexcept {
    KillTimer(handle(), answerTimer);
    arrival_.abandoned();
    if (arrival_.state() == Arrival::State::Failed)
        control_.reset();
    else if (control_)
        control_->stop();
    changed();
}

std::string WebBrowserWindow::LocationURL() const {
    if (!arrival_.downloadAddress().empty()) return arrival_.downloadAddress();
    if (control_) return control_->locationUrl();
    return arrival_.state() == Arrival::State::Arrived ? requested_ : std::string();
}

bool WebBrowserWindow::Offline() const {
    return control_ && control_->offline();
}

// Both are called from inside the control: what they mean is done from the message loop.
void WebBrowserWindow::arrived() {
    PostMessageW(handle(), arrivedMessage, arrival_.number(), 0);
}

void WebBrowserWindow::changed() {
    PostMessageW(handle(), changedMessage, 0, 0);
}

void WebBrowserWindow::documentFacts(const DocumentFacts& facts) {
    facts_ = facts;
    factsNumber_ = arrival_.number();
    changed();
}

void WebBrowserWindow::raise(unsigned number) {
    if (number != arrival_.number()) return;
    // The handler may destroy this object and with it the function that is running.
    const auto handler = DocumentComplete;
    if (handler) handler();
}

void WebBrowserWindow::refresh() {
    const bool unviewable = arrival_.state() == Arrival::State::Unviewable;
    const bool failed = arrival_.state() == Arrival::State::Failed;
    if (!arrival_.waiting()) KillTimer(handle(), answerTimer);
    if (control_) control_->show(control_->rendersPages() && !unviewable && !failed);
    StandInListener& listener = *this;
    if (unviewable && !headerRequest_)
        headerRequest_ = std::make_unique<HeaderRequest>(LocationURL(), listener);
    InvalidateRect(handle(), nullptr, FALSE);
}

PreviewContent WebBrowserWindow::content() const {
    using Kind = PreviewContent::Kind;
    PreviewContent content;
    switch (arrival_.state()) {
        case Arrival::State::Idle: return content;
        case Arrival::State::Requested:
        case Arrival::State::Loading: content.kind = Kind::Loading; return content;
        case Arrival::State::Shown:
        case Arrival::State::Arrived: content.kind = Kind::NotRendered; break;
        case Arrival::State::Unviewable: content.kind = Kind::Unviewable; break;
        case Arrival::State::Failed: content.kind = Kind::Unreachable; break;
    }
    content.address = content.kind == Kind::Unreachable ? requested_ : LocationURL();
    if (content.kind != Kind::Unviewable && content.address == blankAddress) return {};
    if (factsNumber_ == arrival_.number()) content.facts = facts_;
    return content;
}

void WebBrowserWindow::paint(HDC dc) const {
    RECT bounds{};
    GetClientRect(handle(), &bounds);
    const OwnedMemoryDc memory(CreateCompatibleDC(dc));
    const OwnedBitmap bitmap(CreateCompatibleBitmap(dc, bounds.right, bounds.bottom));
    const Selected selected(memory.get(), bitmap.get());
    panel_.paint(memory.get(), bounds, content());
    BitBlt(dc, 0, 0, bounds.right, bounds.bottom, memory.get(), 0, 0, SRCCOPY);
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
        case arrivedMessage: raise(wParam); return 0;
        case changedMessage: refresh(); return 0;
        case WM_TIMER:
            if (wParam == answerTimer) giveUp();
            return 0;
        case WM_SIZE: {
            RECT bounds{};
            GetClientRect(handle(), &bounds);
            if (control_) control_->place(bounds);
            InvalidateRect(handle(), nullptr, FALSE);
            return 0;
        }
        case WM_NCCALCSIZE:
            // The first rectangle of either form of its argument.
            InflateRect(reinterpret_cast<RECT*>(lParam), -framePixels, -framePixels);
            return 0;
        case WM_NCPAINT: paintFrame(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: paint(Painting(handle()).dc()); return 0;
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_DESTROY:
            headerRequest_.reset();
            control_.reset();
            return 0;
        default: return std::nullopt;
    }
}

}  // namespace velvox
