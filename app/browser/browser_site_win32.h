// Where the system's web browser control is embedded: what it asks of its container, and the
// events it raises.
#pragma once

#include "base/com_win32.h"

#include <downloadmgr.h>
#include <exdisp.h>
#include <servprov.h>

#include "app/browser/arrival.h"

namespace velvox {

/// What the embedding reports to. Called from inside the control: only to take note.
class BrowserHost {
 public:
    virtual ~BrowserHost() = default;

    virtual Arrival& arrival() noexcept = 0;

    /// The last event was an arrival.
    virtual void arrived() = 0;

    /// What there is to see has changed.
    virtual void changed() = 0;
};

/// The container's frame window as the control sees it: no menus, no tool bars.
class BrowserFrame final : public ComObject<IOleInPlaceFrame> {
 public:
    explicit BrowserFrame(HWND window) : window_(window) {}

    STDMETHODIMP GetWindow(HWND* window) override;
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
    bool find(REFIID id, void** result) noexcept override;

    HWND window_;
};

// One definition each: link-time optimisation here trips over the thunks of several.
extern template class ComObject<IOleClientSite, IOleInPlaceSite, IDispatch, IServiceProvider,
                                IDownloadManager>;

/// The control's site: it may fill the window, and neither install nor download anything.
class BrowserSite final : public ComObject<IOleClientSite, IOleInPlaceSite, IDispatch,
                                           IServiceProvider, IDownloadManager> {
 public:
    BrowserSite(HWND window, BrowserHost& host) : window_(window), host_(&host) {}

    /// The host goes away; what the control still tells is dropped.
    void disconnect() noexcept { host_ = nullptr; }

    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // Ambient properties.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

    STDMETHODIMP QueryService(REFGUID service, REFIID id, void** result) override;
    STDMETHODIMP Download(IMoniker* moniker, IBindCtx* context, DWORD, LONG, BINDINFO*, LPCOLESTR,
                          LPCOLESTR redirect, UINT) override;

 private:
    bool find(REFIID id, void** result) noexcept override;

    HWND window_;
    BrowserHost* host_;
};

/// Receives the control's events, unpacks them and hands them to the host's `Arrival`.
class BrowserEvents final : public ComObject<IDispatch> {
 public:
    BrowserEvents(IUnknown* control, BrowserHost& host) : control_(control), host_(&host) {}

    void disconnect() noexcept { host_ = nullptr; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override;

 private:
    bool find(REFIID id, void** result) noexcept override;
    void dispatch(DISPID id, const DISPPARAMS& parameters);
    bool isTop(const VARIANT& frame) const noexcept;

    IUnknown* control_;  // borrowed: its identity tells the top document from a frame
    BrowserHost* host_;
};

}  // namespace velvox
