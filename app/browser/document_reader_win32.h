#pragma once

#include <memory>

#include "app/browser/stand_in_document_win32.h"

#include <urlmon.h>

namespace velvox {

/// Receives one transfer and reports the type and size of what comes; keeps nothing of it.
class DocumentReader;

/// Leads from the readers of one registration to its listener. One reader is at work at a time.
/// A transfer keeps its document and its reader alive and they keep the transfer, so that whoever
/// stops listening has to end it.
struct StandInChannel {
    StandInListener* listener = nullptr;
    DocumentReader* reader = nullptr;

    void close() noexcept;
};

class DocumentReader final : public ComObject<IBindStatusCallback, IHttpNegotiate> {
 public:
    enum class Asks { WholeDocument, HeaderOnly };

    /// The type is what is already known of it.
    DocumentReader(Asks asks, std::shared_ptr<StandInChannel> channel, std::string type = {})
        : asks_(asks), channel_(std::move(channel)), facts_{std::move(type), {}} {}

    /// Starts the transfer of a document, or takes over the one that has found its type.
    HRESULT start(IMoniker* moniker, IBindCtx* context);

    /// Ends the transfer; nothing is reported any more.
    void cancel() noexcept;

    STDMETHODIMP OnStartBinding(DWORD, IBinding* binding) override;
    STDMETHODIMP GetPriority(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP OnLowResource(DWORD) override { return S_OK; }
    STDMETHODIMP OnProgress(ULONG, ULONG, ULONG status, LPCWSTR text) override;
    STDMETHODIMP OnStopBinding(HRESULT result, LPCWSTR) override;
    STDMETHODIMP GetBindInfo(DWORD* flags, BINDINFO* info) override;
    STDMETHODIMP OnDataAvailable(DWORD, DWORD, FORMATETC*, STGMEDIUM* medium) override;
    STDMETHODIMP OnObjectAvailable(REFIID, IUnknown*) override { return S_OK; }

    STDMETHODIMP BeginningTransaction(LPCWSTR, LPCWSTR, DWORD, LPWSTR* headers) override;
    STDMETHODIMP OnResponse(DWORD status, LPCWSTR header, LPCWSTR, LPWSTR* request) override;

 private:
    ~DocumentReader() override;
    void report() noexcept;

    Asks asks_;
    std::shared_ptr<StandInChannel> channel_;
    bool cancelled_ = false;
    ComPtr<IBinding> binding_;
    DocumentFacts facts_;
    std::uint64_t received_ = 0;
};

}  // namespace velvox
