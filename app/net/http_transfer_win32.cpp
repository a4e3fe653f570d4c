#include "app/net/http_transfer_win32.h"

#include <algorithm>
#include <array>
#include <atomic>

#include "base/join.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

constexpr std::size_t chunkBytes = 64U << 10;

[[noreturn]] void fail(std::string_view reason) {
    throw RuntimeFailure(Fault::Transfer, std::string(reason));
}

[[noreturn]] void failWithError(DWORD error) {
    switch (error) {
        case ERROR_WINHTTP_NAME_NOT_RESOLVED: fail("The host is not known");
        case ERROR_WINHTTP_CANNOT_CONNECT: fail("The host cannot be reached");
        case ERROR_WINHTTP_TIMEOUT: fail(HttpTransfer::timeoutReason);
        case ERROR_WINHTTP_CONNECTION_ERROR: fail("The connection was cut");
        default: fail(join({"The transfer failed with error ", std::to_string(error)}));
    }
}

void check(BOOL accepted) {
    if (!accepted) failWithError(GetLastError());
}

/// A header's bytes as the server sent them. WinHTTP usually widens each byte by the system's code
/// page, but this is not documented. A character outside the code page becomes the byte of the same
/// number.
std::string wireBytes(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    // With a UTF-8 code page, WideCharToMultiByte accepts no flags and no `lossy` argument.
    const bool utf8 = GetACP() == CP_UTF8;
    for (const wchar_t c : text) {
        char narrowed[4];
        BOOL lossy = FALSE;
        const int count =
            WideCharToMultiByte(CP_ACP, utf8 ? 0 : WC_NO_BEST_FIT_CHARS, &c, 1, narrowed,
                                sizeof narrowed, nullptr, utf8 ? nullptr : &lossy);
        if (c <= 127 || count <= 0 || lossy)
            bytes.push_back(static_cast<char>(c));
        else
            bytes.append(narrowed, static_cast<std::size_t>(count));
    }
    return bytes;
}

}  // namespace

// WinHTTP's threads store the result of a step here. Only one step is in progress at a time,
// because the next one is started after the completion of the previous one has been taken. `status`
// is written last and read first, which passes `value` to the transfer's thread without a lock.
struct HttpTransfer::Completion {
    explicit Completion(const StepRecipient& to) : recipient(to) {
        if (!recipient.window) event = OwnedHandle(CreateEventW(nullptr, FALSE, FALSE, nullptr));
    }

    void leave(DWORD newStatus, DWORD newValue) noexcept {
        value = newValue;
        status.store(newStatus, std::memory_order_release);
        if (recipient.window)
            PostMessageW(recipient.window, recipient.message, recipient.number, 0);
        else
            SetEvent(event.get());
    }

    const StepRecipient recipient;
    OwnedHandle event;
    std::atomic<DWORD> status{0};
    DWORD value = 0;
    // WinHTTP may still write to this buffer after the transfer was given up, so it is part of
    // Completion, which lives that long.
    std::array<char, chunkBytes> chunk{};

    static void CALLBACK onStatus(HINTERNET, DWORD_PTR context, DWORD status, void* information,
                                  DWORD length) noexcept;
};

// `context` is a shared_ptr that the request handle owns. It is deleted when the handle reports
// that it closes, which may be long after the transfer was given up.
void CALLBACK HttpTransfer::Completion::onStatus(HINTERNET, DWORD_PTR context, DWORD status,
                                                 void* information, DWORD length) noexcept {
    auto* const held = reinterpret_cast<std::shared_ptr<Completion>*>(context);
    if (!held) return;
    Completion& completion = **held;
    switch (status) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: completion.leave(status, 0); break;
        case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
            completion.leave(status, *static_cast<const DWORD*>(information));
            break;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: completion.leave(status, length); break;
        case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
            completion.leave(status,
                             static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError);
            break;
        case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: delete held; break;
        default: break;
    }
}

HttpTransfer::HttpTransfer(InternetSession& session, std::string_view address, Wants wants,
                           const TransferLimits& limits, const StepRecipient& recipient)
    : session_(session),
      chain_(address),
      wants_(wants),
      limits_(limits),
      recipient_(recipient),
      deadline_(Clock::now() + limits.time) {
    sendRequest();
}

HttpTransfer::~HttpTransfer() = default;

HANDLE HttpTransfer::completed() const noexcept {
    return completion_->event.get();
}

void HttpTransfer::failWithTimeout() {
    failWithError(ERROR_WINHTTP_TIMEOUT);
}

void HttpTransfer::close() noexcept {
    request_.reset();
    connection_.reset();
}

void HttpTransfer::sendRequest() {
    close();
    const HINTERNET session = session_.handle();
    if (!session) failWithError(GetLastError());
    const HttpAddress& to = chain_.current();
    connection_ = OwnedInternet(WinHttpConnect(session, widen(to.host).c_str(), to.port, 0));
    if (!connection_) failWithError(GetLastError());
    constexpr DWORD asWritten = WINHTTP_FLAG_ESCAPE_DISABLE | WINHTTP_FLAG_ESCAPE_DISABLE_QUERY |
                                WINHTTP_FLAG_NULL_CODEPAGE;
    request_ = OwnedInternet(WinHttpOpenRequest(
        connection_.get(), L"GET", widen(escapeForRequestLine(to.target)).c_str(), nullptr,
        WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
        asWritten | (to.secure ? WINHTTP_FLAG_SECURE : 0)));
    const HINTERNET request = request_.get();
    if (!request) failWithError(GetLastError());

    // HttpTransfer follows redirects itself, because not every system follows a 303. Connections
    // are not kept alive, because under Wine the bytes that a server sends after a body would
    // become the reply to the next request.
    DWORD features = WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS |
                     WINHTTP_DISABLE_AUTHENTICATION | WINHTTP_DISABLE_KEEP_ALIVE;
    check(WinHttpSetOption(request, WINHTTP_OPTION_DISABLE_FEATURE, &features, sizeof features));
    // WinHTTP's own time-outs, 30 seconds or less by default, must not end a transfer before its
    // deadline. Name resolution has no time-out, because with one it would run on a separate
    // thread.
    auto beyond = static_cast<DWORD>(2 * limits_.time.count());
    check(WinHttpSetTimeouts(request, 0, static_cast<int>(beyond), static_cast<int>(beyond),
                             static_cast<int>(beyond)));
    check(
        WinHttpSetOption(request, WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT, &beyond, sizeof beyond));

    completion_ = std::make_shared<Completion>(recipient_);
    auto held = std::make_unique<std::shared_ptr<Completion>>(completion_);
    auto context = reinterpret_cast<DWORD_PTR>(held.get());
    check(WinHttpSetOption(request, WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context));
    if (WinHttpSetStatusCallback(
            request, &Completion::onStatus,
            WINHTTP_CALLBACK_FLAG_ALL_COMPLETIONS | WINHTTP_CALLBACK_FLAG_HANDLES,
            0) == WINHTTP_INVALID_STATUS_CALLBACK)
        failWithError(GetLastError());
    [[maybe_unused]] const auto* handedOver = held.release();
    check(WinHttpSendRequest(request, WINHTTP_NO_ADDITIONAL_HEADERS, 0, WINHTTP_NO_REQUEST_DATA, 0,
                             0, context));
}

// Takes one step only. If the bytes are already there, Wine completes a step inside the call that
// starts it, so a server that sends tiny chunks would keep a loop here busy for ever. The caller
// calls again for the next step, whose completion has then been signalled already.
bool HttpTransfer::advance() {
    Completion& completion = *completion_;
    const DWORD status = completion.status.exchange(0, std::memory_order_acquire);
    return status != 0 && takeStep(status, completion.value);
}

bool HttpTransfer::takeStep(DWORD completed, DWORD value) {
    const HINTERNET request = request_.get();
    switch (completed) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
            check(WinHttpReceiveResponse(request, nullptr));
            return false;
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: return takeHeader();
        case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
            if (value == 0) {
                checkWhole();
                close();
                return true;
            }
            check(WinHttpReadData(request, completion_->chunk.data(),
                                  static_cast<DWORD>(std::min<std::size_t>(value, chunkBytes)),
                                  nullptr));
            return false;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE:
            if (append(value)) {
                close();
                return true;
            }
            check(WinHttpQueryDataAvailable(request, nullptr));
            return false;
        default: failWithError(value);
    }
}

bool HttpTransfer::takeHeader() {
    DWORD bytes = 0;
    WinHttpQueryHeaders(request_.get(), WINHTTP_QUERY_RAW_HEADERS_CRLF,
                        WINHTTP_HEADER_NAME_BY_INDEX, WINHTTP_NO_OUTPUT_BUFFER, &bytes,
                        WINHTTP_NO_HEADER_INDEX);
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    check(WinHttpQueryHeaders(request_.get(), WINHTTP_QUERY_RAW_HEADERS_CRLF,
                              WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &bytes,
                              WINHTTP_NO_HEADER_INDEX));
    text.resize(bytes / sizeof(wchar_t));
    header_ = parseReplyHeader(wireBytes(text));
    if (chain_.follow(header_)) {
        if (Clock::now() >= deadline_) failWithTimeout();
        sendRequest();
        return false;
    }
    if (wants_ == Wants::HeaderOnly) {
        close();
        return true;
    }
    if (header_.document.size > limits_.bytes) fail("The page is too large");
    check(WinHttpQueryDataAvailable(request_.get(), nullptr));
    return false;
}

// Returns true once the body has its announced length. Wine also delivers bytes after that length,
// which are dropped.
bool HttpTransfer::append(std::size_t count) {
    const auto left = header_.document.size.value_or(UINT64_MAX) - body_.size();
    count = static_cast<std::size_t>(std::min<std::uint64_t>(count, left));
    if (count > limits_.bytes - body_.size()) fail("The page is too large");
    // The capacity then grows by doubling, which reaches the limit exactly and never exceeds it.
    if (body_.empty()) body_.reserve(chunkBytes);
    body_.append(completion_->chunk.data(), count);
    return count == left;
}

// Throws if the body is shorter than its announced length, because not every system reports that.
void HttpTransfer::checkWhole() const {
    if (header_.document.size.value_or(0) > body_.size())
        failWithError(ERROR_WINHTTP_CONNECTION_ERROR);
}

}  // namespace velvox
