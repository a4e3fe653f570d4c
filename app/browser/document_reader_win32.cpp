#include "app/browser/document_reader_win32.h"

#include "base/window_win32.h"

namespace velvox {

void StandInChannel::close() noexcept {
    listener = nullptr;
    if (reader) share(reader)->cancel();
}

DocumentReader::~DocumentReader() {
    if (channel_->reader == this) channel_->reader = nullptr;
}

HRESULT DocumentReader::start(IMoniker* moniker, IBindCtx* context) {
    if (channel_->reader) share(channel_->reader)->cancel();
    channel_->reader = this;
    const HRESULT registered = RegisterBindStatusCallback(context, this, nullptr, 0);
    if (FAILED(registered)) return registered;
    ComPtr<IStream> stream;
    return moniker->BindToStorage(context, nullptr, IID_IStream, stream.putVoid());
}

void DocumentReader::cancel() noexcept {
    cancelled_ = true;
    if (channel_->reader == this) channel_->reader = nullptr;
    if (const auto binding = std::move(binding_)) binding->Abort();
}

void DocumentReader::report() noexcept {
    if (cancelled_ || !channel_->listener) return;
    try {
        channel_->listener->documentFacts(facts_);
    } catch (...) {
        reportCurrentFailure();
    }
}

STDMETHODIMP DocumentReader::OnStartBinding(DWORD, IBinding* binding) {
    if (cancelled_) return E_ABORT;
    binding_ = share(binding);
    return S_OK;
}

STDMETHODIMP DocumentReader::OnProgress(ULONG, ULONG, ULONG status, LPCWSTR text) {
    if (asks_ == Asks::HeaderOnly || status != BINDSTATUS_MIMETYPEAVAILABLE || !text) return S_OK;
    try {
        facts_.type = narrow(text);
    } catch (...) {
        reportCurrentFailure();
    }
    return S_OK;
}

STDMETHODIMP DocumentReader::OnStopBinding(HRESULT result, LPCWSTR) {
    binding_.reset();
    if (asks_ == Asks::HeaderOnly) return S_OK;
    if (SUCCEEDED(result)) facts_.size = received_;
    report();
    return S_OK;
}

STDMETHODIMP DocumentReader::GetBindInfo(DWORD* flags, BINDINFO* info) {
    if (!flags || !info) return E_POINTER;
    *flags = BINDF_ASYNCHRONOUS | BINDF_ASYNCSTORAGE | BINDF_PULLDATA | BINDF_NO_UI |
             BINDF_SILENTOPERATION;
    const DWORD size = info->cbSize;
    *info = {};
    info->cbSize = size;
    if (asks_ == Asks::WholeDocument) return S_OK;
    *flags |= BINDF_NOWRITECACHE | BINDF_GETNEWESTVERSION;
    // The transfer frees the verb.
    constexpr wchar_t verb[] = L"HEAD";
    auto* const copy = static_cast<LPWSTR>(CoTaskMemAlloc(sizeof verb));
    if (!copy) return E_OUTOFMEMORY;
    std::copy(std::begin(verb), std::end(verb), copy);
    info->dwBindVerb = BINDVERB_CUSTOM;
    info->szCustomVerb = copy;
    return S_OK;
}

STDMETHODIMP DocumentReader::OnDataAvailable(DWORD, DWORD, FORMATETC*, STGMEDIUM* medium) {
    if (!medium || medium->tymed != TYMED_ISTREAM || !medium->pstm) return S_OK;
    char chunk[8192];
    for (ULONG got = 0; SUCCEEDED(medium->pstm->Read(chunk, sizeof chunk, &got)) && got != 0;)
        received_ += got;
    return S_OK;
}

STDMETHODIMP DocumentReader::BeginningTransaction(LPCWSTR, LPCWSTR, DWORD, LPWSTR* headers) {
    if (headers) *headers = nullptr;
    return S_OK;
}

STDMETHODIMP DocumentReader::OnResponse(DWORD status, LPCWSTR header, LPCWSTR, LPWSTR* request) {
    if (request) *request = nullptr;
    if (asks_ != Asks::HeaderOnly || !header) return S_OK;
    try {
        if (status / 100 == 2) facts_ = factsOfHeader(narrow(header));
    } catch (...) {
        reportCurrentFailure();
    }
    report();
    // All that was asked for is known; a body, if the server sends one all the same, is not read.
    return E_ABORT;
}

}  // namespace velvox
