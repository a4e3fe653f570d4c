#include "app/browser/browser_control_win32.h"

#include "base/runtime_failure.h"

namespace velvox {
namespace {

void require(bool present, const char* what) {
    if (!present) throw RuntimeFailure(Fault::Platform, std::string(what) + " is missing");
}

}  // namespace

BrowserControl::BrowserControl(HWND window, BrowserHost& host, StandInListener& listener) {
    if (!systemHasHtmlEngine()) standIn_ = std::make_unique<StandInRegistration>(listener);
    requireSuccess(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IWebBrowser2), browser_.putVoid()),
                   "Creating the web browser control");
    site_ = ComPtr<BrowserSite>(new BrowserSite(window, host));
    events_ = ComPtr<BrowserEvents>(new BrowserEvents(browser_.query<IUnknown>().get(), host));
    try {
        embed(window);
    } catch (...) {
        release();
        throw;
    }
}

BrowserControl::~BrowserControl() {
    release();
}

void BrowserControl::embed(HWND window) {
    const auto object = browser_.query<IOleObject>();
    require(static_cast<bool>(object), "The web browser control's object");
    requireSuccess(object->SetClientSite(site_.get()), "IOleObject::SetClientSite");
    OleSetContainedObject(object.get(), TRUE);

    const auto points = browser_.query<IConnectionPointContainer>();
    require(static_cast<bool>(points), "The web browser control's event source");
    requireSuccess(points->FindConnectionPoint(DIID_DWebBrowserEvents2, connection_.put()),
                   "IConnectionPointContainer::FindConnectionPoint");
    requireSuccess(connection_->Advise(events_.get(), &cookie_), "IConnectionPoint::Advise");

    // A preview answers no dialogs and takes no dropped files.
    browser_->put_Silent(VARIANT_TRUE);
    browser_->put_RegisterAsDropTarget(VARIANT_FALSE);

    RECT bounds{};
    GetClientRect(window, &bounds);
    requireSuccess(
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, window, &bounds),
        "IOleObject::DoVerb");
    if (const auto inPlace = browser_.query<IOleInPlaceObject>()) inPlace->GetWindow(&window_);
}

void BrowserControl::release() noexcept {
    site_->disconnect();
    events_->disconnect();
    stop();
    if (cookie_) connection_->Unadvise(std::exchange(cookie_, 0));
    connection_.reset();
    if (const auto object = browser_.query<IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    browser_.reset();
    events_.reset();
    site_.reset();
    standIn_.reset();
}

void BrowserControl::navigate(std::string_view address) {
    const Bstr url = makeBstr(widen(address));
    VARIANT none;
    VariantInit(&none);
    requireSuccess(browser_->Navigate(url.get(), &none, &none, &none, &none),
                   "IWebBrowser2::Navigate");
}

void BrowserControl::stop() noexcept {
    browser_->Stop();
}

std::string BrowserControl::locationUrl() const {
    BSTR url = nullptr;
    requireSuccess(browser_->get_LocationURL(&url), "IWebBrowser2::LocationURL");
    const Bstr owned(url);
    return narrow(view(url));
}

bool BrowserControl::offline() const noexcept {
    VARIANT_BOOL offline = VARIANT_FALSE;
    return SUCCEEDED(browser_->get_Offline(&offline)) && offline != VARIANT_FALSE;
}

void BrowserControl::place(const RECT& bounds) noexcept {
    if (const auto inPlace = browser_.query<IOleInPlaceObject>())
        inPlace->SetObjectRects(&bounds, &bounds);
}

void BrowserControl::show(bool visible) noexcept {
    if (window_) ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace velvox
