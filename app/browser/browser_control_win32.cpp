#include "app/browser/browser_control_win32.h"

#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

// CLSID_HTMLDocument, which no import library defines.
constexpr CLSID htmlDocument = {
    0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};

// Throws if the system has no HTML engine. Finds out by creating a document, because
// CoGetClassObject succeeds even without an engine.
void requireHtmlEngine() {
    ComPtr<IUnknown> document;
    requireSuccess(CoCreateInstance(htmlDocument, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                    document.putVoid()),
                   "Creating an HTML document");
}

void require(bool present, const char* what) {
    if (!present) throw RuntimeFailure(Fault::Platform, std::string(what) + " is missing");
}

}  // namespace

BrowserControl::BrowserControl(HWND window, NavigationTracker& tracker,
                               std::function<void()> changed) {
    requireHtmlEngine();
    requireSuccess(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IWebBrowser2), browser_.putVoid()),
                   "Creating the web browser control");
    site_ = createBrowserSite(window);
    events_ = ComPtr<BrowserEvents>(
        new BrowserEvents(browser_.query<IUnknown>().get(), tracker, std::move(changed)));
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

    // The preview must not open dialogs or accept dropped files.
    browser_->put_Silent(VARIANT_TRUE);
    browser_->put_RegisterAsDropTarget(VARIANT_FALSE);

    const RECT bounds = clientArea(window);
    requireSuccess(
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, window, &bounds),
        "IOleObject::DoVerb");
    if (const auto inPlace = browser_.query<IOleInPlaceObject>()) inPlace->GetWindow(&window_);
    show(false);
}

void BrowserControl::release() noexcept {
    events_->disconnect();
    browser_->Stop();
    if (cookie_) connection_->Unadvise(std::exchange(cookie_, 0));
    connection_.reset();
    if (const auto object = browser_.query<IOleObject>()) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    browser_.reset();
    events_.reset();
    site_.reset();
}

void BrowserControl::navigate(std::string_view address) {
    const Bstr url = makeBstr(widen(address));
    VARIANT none{};
    // Keeps the control alive: Navigate may dispatch messages, and one of them may destroy this
    // object.
    const auto browser = share(browser_.get());
    requireSuccess(browser->Navigate(url.get(), &none, &none, &none, &none),
                   "IWebBrowser2::Navigate");
}

void BrowserControl::place(const RECT& bounds) noexcept {
    if (const auto inPlace = browser_.query<IOleInPlaceObject>())
        inPlace->SetObjectRects(&bounds, &bounds);
}

void BrowserControl::show(bool visible) noexcept {
    if (window_) ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace velvox
