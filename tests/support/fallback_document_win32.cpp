#include "tests/support/fallback_document_win32.h"

#include <ocidl.h>

namespace velvox {
namespace {

constexpr CLSID htmlDocument = {
    0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};

constexpr DISPID readyStateProperty = -525;
constexpr long readyStateComplete = 4;

// A document with the minimum that the browser control needs to consider it loaded. It reads and
// shows nothing. It has no further interfaces, and its other methods do nothing or fail: the
// control accepts this as a document without commands, view or scripting.
class FallbackDocument final : public ComDispatch<IPersistMoniker, IOleObject> {
 public:
    STDMETHODIMP GetClassID(CLSID* id) override {
        if (!id) return E_POINTER;
        *id = htmlDocument;
        return S_OK;
    }
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(BOOL, IMoniker*, IBindCtx*, DWORD) override { return S_OK; }
    STDMETHODIMP Save(IMoniker*, IBindCtx*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP SaveCompleted(IMoniker*, IBindCtx*) override { return E_NOTIMPL; }
    STDMETHODIMP GetCurMoniker(IMoniker**) override { return E_NOTIMPL; }

    STDMETHODIMP SetClientSite(IOleClientSite* site) override {
        site_ = share(site);
        return S_OK;
    }
    STDMETHODIMP GetClientSite(IOleClientSite** site) override {
        if (!site) return E_POINTER;
        *site = share(site_.get()).release();
        return S_OK;
    }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD) override { return S_OK; }
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) override { return S_OK; }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* id) override { return GetClassID(id); }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL*) override { return S_OK; }
    STDMETHODIMP GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP Unadvise(DWORD) override { return OLE_E_NOCONNECTION; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != readyStateProperty || !result) return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4;
        V_I4(result) = readyStateComplete;
        return S_OK;
    }

 private:
    bool find(REFIID id, void** result) noexcept override {
        if (id == IID_IPersist) *result = static_cast<IPersistMoniker*>(this);
        return *result || ComObject::find(id, result);
    }

    ComPtr<IOleClientSite> site_;
};

class FallbackFactory final : public ComObject<IClassFactory> {
 public:
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        const ComPtr<FallbackDocument> document(new (std::nothrow) FallbackDocument);
        return document ? document->QueryInterface(id, result) : E_OUTOFMEMORY;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

}  // namespace

FallbackDocumentRegistration::FallbackDocumentRegistration() {
    const ComPtr<FallbackFactory> factory(new FallbackFactory);
    requireSuccess(CoRegisterClassObject(htmlDocument, factory.get(), CLSCTX_INPROC_SERVER,
                                         REGCLS_MULTIPLEUSE, &cookie_),
                   "CoRegisterClassObject");
}

FallbackDocumentRegistration::~FallbackDocumentRegistration() {
    CoRevokeClassObject(cookie_);
}

}  // namespace velvox
