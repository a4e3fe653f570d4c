#include "app/browser/browser_site_win32.h"

namespace velvox {

template class ComObject<IOleClientSite, IOleInPlaceSite, IDispatch>;

namespace {

// From mshtmdid.h and mshtmhst.h, which would bring a hundred thousand lines of declarations.
constexpr DISPID ambientDownloadControl = -5512;
constexpr long showImages = 0x10;
constexpr long showVideos = 0x20;
constexpr long playSounds = 0x40;
constexpr long noJava = 0x100;
constexpr long noControlDownloads = 0x400;
constexpr long silent = 0x40000000;

}  // namespace

STDMETHODIMP BrowserFrame::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_;
    return S_OK;
}

bool BrowserFrame::find(REFIID id, void** result) noexcept {
    if (id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow)
        *result = static_cast<IOleInPlaceUIWindow*>(this);
    return *result || ComObject::find(id, result);
}

bool BrowserSite::find(REFIID id, void** result) noexcept {
    if (id == IID_IOleWindow) *result = static_cast<IOleWindow*>(this);
    return *result || ComObject::find(id, result);
}

STDMETHODIMP BrowserSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP BrowserSite::GetContainer(IOleContainer** container) {
    if (container) *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP BrowserSite::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_;
    return S_OK;
}

STDMETHODIMP BrowserSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    if (!frame || !document || !place || !clip || !info) return E_POINTER;
    *document = nullptr;
    *frame = new (std::nothrow) BrowserFrame(window_);
    if (!*frame) return E_OUTOFMEMORY;
    GetClientRect(window_, place);
    *clip = *place;
    info->fMDIApp = FALSE;
    info->hwndFrame = window_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP BrowserSite::GetTypeInfoCount(UINT* count) {
    if (count) *count = 0;
    return S_OK;
}

STDMETHODIMP BrowserSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP BrowserSite::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*) {
    if (id != ambientDownloadControl || !result) return DISP_E_MEMBERNOTFOUND;
    V_VT(result) = VT_I4;
    V_I4(result) = showImages | showVideos | playSounds | noJava | noControlDownloads | silent;
    return S_OK;
}

}  // namespace velvox
