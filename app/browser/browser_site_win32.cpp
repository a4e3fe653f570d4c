#include "app/browser/browser_site_win32.h"

#include "base/system_win32.h"

namespace velvox {
namespace {

// Copied from mshtmdid.h and mshtmhst.h, because including them adds a hundred thousand lines.
constexpr DISPID ambientDownloadControl = -5512;
constexpr long showImages = 0x10;
constexpr long showVideos = 0x20;
constexpr long playSounds = 0x40;
constexpr long noJava = 0x100;
constexpr long noControlDownloads = 0x400;
constexpr long silent = 0x40000000;

HRESULT returnWindow(HWND window, HWND* result) {
    if (!result) return E_POINTER;
    *result = window;
    return S_OK;
}

/// Represents the container's frame window to the control. The frame has no menus and no tool bars.
class BrowserFrame final : public ComObject<IOleInPlaceFrame> {
 public:
    explicit BrowserFrame(HWND window) : window_(window) {}

    STDMETHODIMP GetWindow(HWND* window) override { return returnWindow(window_, window); }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
    bool find(REFIID id, void** result) noexcept override {
        if (id == IID_IOleWindow || id == IID_IOleInPlaceUIWindow)
            *result = static_cast<IOleInPlaceUIWindow*>(this);
        return *result || ComObject::find(id, result);
    }

    HWND window_;
};

class BrowserSite final : public ComDispatch<IOleClientSite, IOleInPlaceSite> {
 public:
    explicit BrowserSite(HWND window) : window_(window) {}

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override {
        if (moniker) *moniker = nullptr;
        return E_NOTIMPL;
    }
    STDMETHODIMP GetContainer(IOleContainer** container) override {
        if (container) *container = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override { return returnWindow(window_, window); }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT bounds, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override {
        if (!frame || !document || !bounds || !clip || !info) return E_POINTER;
        *document = nullptr;
        *frame = new (std::nothrow) BrowserFrame(window_);
        if (!*frame) return E_OUTOFMEMORY;
        *clip = *bounds = clientArea(window_);
        info->fMDIApp = FALSE;
        info->hwndFrame = window_;
        info->haccel = nullptr;
        info->cAccelEntries = 0;
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // Returns ambient properties of the container.
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != ambientDownloadControl || !result) return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4;
        V_I4(result) = showImages | showVideos | playSounds | noJava | noControlDownloads | silent;
        return S_OK;
    }

 private:
    bool find(REFIID id, void** result) noexcept override {
        if (id == IID_IOleWindow) *result = static_cast<IOleWindow*>(this);
        return *result || ComObject::find(id, result);
    }

    HWND window_;
};

}  // namespace

ComPtr<IOleClientSite> createBrowserSite(HWND window) {
    return ComPtr<IOleClientSite>(new BrowserSite(window));
}

}  // namespace velvox
