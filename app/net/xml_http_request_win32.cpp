#include "app/net/xml_http_request_win32.h"

#include <charconv>

#include "app/net/http_address.h"

namespace velvox {
namespace {

constexpr int headersReceived = 2;
constexpr std::size_t maxReplyBytes = 1 << 20;

VARIANT textVariant(BSTR text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = text;
    return value;
}

VARIANT boolVariant(bool flag) {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}

bool announcesTooMuch(IXMLHttpRequest& request) {
    const Bstr name = makeBstr(L"Content-Length");
    BSTR value = nullptr;
    // The reply has no such header, or the reply's headers have not arrived yet.
    if (request.getResponseHeader(name.get(), &value) != S_OK) return false;
    const Bstr owner(value);
    const std::string digits = narrow(view(value));
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), length);
    return error == std::errc::result_out_of_range || length > maxReplyBytes;
}

}  // namespace

MsxmlRequest::MsxmlRequest() {
    CLSID id;
    requireSuccess(CLSIDFromProgID(L"Microsoft.XMLHTTP", &id), "CLSIDFromProgID");
    requireSuccess(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IXMLHttpRequest,
                                    request_.putVoid()),
                   "CoCreateInstance of the XML HTTP request");
}

void MsxmlRequest::open(std::string_view method, std::string_view address) {
    const Bstr verb = makeBstr(widen(method));
    // The address contains a date in the user's own format. Escaping keeps the request line valid.
    const Bstr url = makeBstr(widen(escapeForRequestLine(address)));
    const Bstr noUser = makeBstr(L"");
    requireSuccess(request_->open(verb.get(), url.get(), boolVariant(true),
                                  textVariant(noUser.get()), textVariant(noUser.get())),
                   "The request's open");
}

void MsxmlRequest::send() {
    VARIANT nothing{};
    nothing.vt = VT_EMPTY;
    requireSuccess(request_->send(nothing), "The request's send");
}

// Does not release the request object: under Wine the transfer continues after an abort and would
// crash without the object.
void MsxmlRequest::abort() {
    requireSuccess(request_->abort(), "The request's abort");
}

int MsxmlRequest::readyState() const {
    LONG state = 0;
    requireSuccess(request_->get_readyState(&state), "The request's readyState");
    // If the reply is too large, abort() resets the state to 0, so that the reply never counts as
    // complete.
    if (state < headersReceived || !announcesTooMuch(*request_.get()))
        return static_cast<int>(state);
    requireSuccess(request_->abort(), "The request's abort");
    return 0;
}

std::string MsxmlRequest::responseText() const {
    BSTR text = nullptr;
    requireSuccess(request_->get_responseText(&text), "The request's responseText");
    const Bstr owner(text);
    return narrow(view(text));
}

}  // namespace velvox
