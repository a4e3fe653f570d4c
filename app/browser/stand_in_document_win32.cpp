#include "app/browser/stand_in_document_win32.h"

#include <ocidl.h>

#include "app/browser/document_reader_win32.h"

namespace velvox {
namespace {

constexpr CLSID htmlDocument = {
    0x25336920, 0x03F9, 0x11CF, {0x8F, 0xD0, 0x00, 0xAA, 0x00, 0x68, 0x6F, 0x13}};

constexpr DISPID readyStateProperty = -525;
constexpr long readyStateComplete = 4;

// As much of a document as the control needs to call it loaded. Everything else is refused, which
// the control takes for a document without commands, view or scripting.
class StandInDocument final
    : public ComObject<IPersistMoniker, IMonikerProp, IOleObject, IDispatch> {
 public:
    explicit StandInDocument(std::shared_ptr<StandInChannel> channel)
        : channel_(std::move(channel)) {}

    STDMETHODIMP GetClassID(CLSID* id) override {
        if (!id) return E_POINTER;
        *id = htmlDocument;
        return S_OK;
    }
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(BOOL, IMoniker* moniker, IBindCtx* context, DWORD) override {
        if (!moniker || !context) return E_INVALIDARG;
        stopReading();
        reader_ = ComPtr<DocumentReader>(new (std::nothrow) DocumentReader(
            DocumentReader::Asks::WholeDocument, channel_, type_));
        if (!reader_) return E_OUTOFMEMORY;
        // A document whose content cannot be read has still been arrived at.
        if (FAILED(reader_->start(moniker, context))) stopReading();
        return S_OK;
    }
    STDMETHODIMP Save(IMoniker*, IBindCtx*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP SaveCompleted(IMoniker*, IBindCtx*) override { return E_NOTIMPL; }
    STDMETHODIMP GetCurMoniker(IMoniker**) override { return E_NOTIMPL; }

    STDMETHODIMP PutProperty(MONIKERPROPERTY property, LPCWSTR value) override {
        if (property != MIMETYPEPROP || !value) return S_OK;
        try {
            type_ = narrow(value);
        } catch (...) {
            return E_OUTOFMEMORY;
        }
        return S_OK;
    }

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
    STDMETHODIMP Close(DWORD) override {
        stopReading();
        return S_OK;
    }
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

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (count) *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id != readyStateProperty || !result) return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_I4;
        V_I4(result) = readyStateComplete;
        return S_OK;
    }

 private:
    ~StandInDocument() override { stopReading(); }

    bool find(REFIID id, void** result) noexcept override {
        if (id == IID_IPersist) *result = static_cast<IPersistMoniker*>(this);
        return *result || ComObject::find(id, result);
    }

    void stopReading() noexcept {
        if (const auto reader = std::move(reader_)) reader->cancel();
    }

    std::shared_ptr<StandInChannel> channel_;
    std::string type_;
    ComPtr<IOleClientSite> site_;
    ComPtr<DocumentReader> reader_;
};

class StandInFactory final : public ComObject<IClassFactory> {
 public:
    explicit StandInFactory(std::shared_ptr<StandInChannel> channel)
        : channel_(std::move(channel)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
        if (!result) return E_POINTER;
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        const ComPtr<StandInDocument> document(new (std::nothrow) StandInDocument(channel_));
        return document ? document->QueryInterface(id, result) : E_OUTOFMEMORY;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
    std::shared_ptr<StandInChannel> channel_;
};

}  // namespace

// Getting the class object succeeds on systems without an engine: only making a document tells.
bool systemHasHtmlEngine() {
    static const bool found = [] {
        ComPtr<IUnknown> document;
        return SUCCEEDED(CoCreateInstance(htmlDocument, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                          document.putVoid()));
    }();
    return found;
}

StandInRegistration::StandInRegistration(StandInListener& listener)
    : channel_(std::make_shared<StandInChannel>(&listener)) {
    const ComPtr<StandInFactory> factory(new StandInFactory(channel_));
    requireSuccess(CoRegisterClassObject(htmlDocument, factory.get(), CLSCTX_INPROC_SERVER,
                                         REGCLS_MULTIPLEUSE, &cookie_),
                   "CoRegisterClassObject");
}

StandInRegistration::~StandInRegistration() {
    channel_->close();
    CoRevokeClassObject(cookie_);
}

HeaderRequest::HeaderRequest(const std::string& address, StandInListener& listener)
    : channel_(std::make_shared<StandInChannel>(&listener)) {
    const ComPtr<DocumentReader> reader(
        new DocumentReader(DocumentReader::Asks::HeaderOnly, channel_));
    ComPtr<IUri> uri;
    ComPtr<IMoniker> moniker;
    ComPtr<IBindCtx> context;
    if (SUCCEEDED(CreateUri(widen(address).c_str(),
                            Uri_CREATE_NO_CANONICALIZE | Uri_CREATE_NO_DECODE_EXTRA_INFO, 0,
                            uri.put())) &&
        SUCCEEDED(CreateURLMonikerEx2(nullptr, uri.get(), moniker.put(), URL_MK_NO_CANONICALIZE)) &&
        SUCCEEDED(CreateBindCtx(0, context.put())))
        reader->start(moniker.get(), context.get());
}

HeaderRequest::~HeaderRequest() {
    channel_->close();
}

}  // namespace velvox
