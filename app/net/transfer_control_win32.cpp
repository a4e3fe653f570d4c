#include "app/net/transfer_control_win32.h"

#include <algorithm>
#include <charconv>
#include <mutex>
#include <utility>

#include "base/join.h"
#include "base/runtime_failure.h"
#include "base/system_win32.h"

namespace velvox {
namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(std::string_view reason) {
    throw RuntimeFailure(Fault::Transfer, std::string(reason));
}

[[noreturn]] void failWithError(DWORD error) {
    switch (error) {
        case ERROR_WINHTTP_NAME_NOT_RESOLVED: fail("The host is not known");
        case ERROR_WINHTTP_CANNOT_CONNECT: fail("The host cannot be reached");
        case ERROR_WINHTTP_TIMEOUT: fail("The server did not answer in time");
        case ERROR_WINHTTP_CONNECTION_ERROR: fail("The connection was cut");
        default: fail(join({"The transfer failed with error ", std::to_string(error)}));
    }
}

// What the transfer's worker threads tell the waiting thread: one completion at a time, since the
// next step is asked for only after the last one has been reported.
class Completions {
 public:
    void report(DWORD status, DWORD value) {
        const std::lock_guard lock(mutex_);
        status_ = status;
        value_ = value;
        SetEvent(arrived_.get());
    }

    struct Completion {
        DWORD status;
        DWORD value;
    };

    Completion take() {
        const std::lock_guard lock(mutex_);
        return {std::exchange(status_, 0), value_};
    }

    HANDLE arrived() const noexcept { return arrived_.get(); }

    // What is read: kept here, since a read that was given up may still be written to.
    std::string body;

 private:
    std::mutex mutex_;
    OwnedHandle arrived_{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    DWORD status_ = 0;
    DWORD value_ = 0;
};

// The context of a request handle. The handle holds a reference of its own until its closing
// notice, which may come after the transfer has been given up.
using CompletionsPtr = std::shared_ptr<Completions>;

void CALLBACK onStatus(HINTERNET, DWORD_PTR context, DWORD status, void* information,
                       DWORD length) noexcept {
    if (!context) return;
    auto* completions = reinterpret_cast<CompletionsPtr*>(context);
    switch (status) {
        case WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE:
        case WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE: (*completions)->report(status, 0); break;
        case WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE:
            (*completions)->report(status, *static_cast<const DWORD*>(information));
            break;
        case WINHTTP_CALLBACK_STATUS_READ_COMPLETE: (*completions)->report(status, length); break;
        case WINHTTP_CALLBACK_STATUS_REQUEST_ERROR:
            (*completions)
                ->report(status, static_cast<const WINHTTP_ASYNC_RESULT*>(information)->dwError);
            break;
        case WINHTTP_CALLBACK_STATUS_HANDLE_CLOSING: delete completions; break;
        default: break;
    }
}

// Timers are left out: they would wake the wait for nothing.
constexpr DWORD awaitedInput =
    QS_SENDMESSAGE | QS_POSTMESSAGE | QS_PAINT | QS_MOUSEBUTTON | QS_MOUSEMOVE | QS_KEY;

// A look into the queue for one kind of message lets the wait pass over all others that are in it:
// what comes between two looks is found after this time at the latest.
constexpr std::chrono::milliseconds longestBlindness{100};

// Waits for the completion of one step, answering sent messages meanwhile.
DWORD await(Completions& completions, DWORD expected, Clock::time_point deadline,
            const std::function<void()>& whileWaiting) {
    const HANDLE arrived = completions.arrived();
    for (;;) {
        auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) failWithError(ERROR_WINHTTP_TIMEOUT);
        if (whileWaiting) left = std::min(left, longestBlindness);
        const DWORD result = MsgWaitForMultipleObjects(
            1, &arrived, FALSE, static_cast<DWORD>(left.count()), whileWaiting ? awaitedInput : 0);
        if (result == WAIT_TIMEOUT || result == WAIT_OBJECT_0 + 1) {
            if (whileWaiting) whileWaiting();
            continue;
        }
        if (result != WAIT_OBJECT_0) throwLastError("MsgWaitForMultipleObjects");
        const auto [status, value] = completions.take();
        if (status == WINHTTP_CALLBACK_STATUS_REQUEST_ERROR) failWithError(value);
        if (status == expected) return value;
    }
}

std::string header(HINTERNET request, DWORD which) {
    DWORD bytes = 0;
    WinHttpQueryHeaders(request, which, WINHTTP_HEADER_NAME_BY_INDEX, WINHTTP_NO_OUTPUT_BUFFER,
                        &bytes, WINHTTP_NO_HEADER_INDEX);
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) return {};
    std::wstring text(bytes / sizeof(wchar_t), L'\0');
    if (!WinHttpQueryHeaders(request, which, WINHTTP_HEADER_NAME_BY_INDEX, text.data(), &bytes,
                             WINHTTP_NO_HEADER_INDEX))
        return {};
    text.resize(bytes / sizeof(wchar_t));
    return narrow(text);
}

int statusOf(HINTERNET request) {
    DWORD status = 0;
    DWORD size = sizeof status;
    if (!WinHttpQueryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                             WINHTTP_HEADER_NAME_BY_INDEX, &status, &size, WINHTTP_NO_HEADER_INDEX))
        failWithError(GetLastError());
    return static_cast<int>(status);
}

void step(BOOL accepted) {
    if (!accepted) failWithError(GetLastError());
}

}  // namespace

WinHttpTransfer::WinHttpTransfer(TransferLimits limits, std::function<void()> whileWaiting)
    : limits_(limits), whileWaiting_(std::move(whileWaiting)) {}

WinHttpTransfer::~WinHttpTransfer() = default;

HINTERNET WinHttpTransfer::session() {
    if (!session_) session_ = openInternetSession();
    if (!session_) failWithError(GetLastError());
    return session_.get();
}

std::string WinHttpTransfer::OpenURL(std::string_view address) {
    const Deadline deadline = Clock::now() + limits_.time;
    return fetchFollowingRedirects(address,
                                   [&](const HttpAddress& at) { return exchange(at, deadline); });
}

HttpReply WinHttpTransfer::exchange(const HttpAddress& address, Deadline deadline) {
    const OwnedInternet connection(
        WinHttpConnect(session(), widen(address.host).c_str(), address.port, 0));
    if (!connection) failWithError(GetLastError());
    constexpr DWORD asWritten = WINHTTP_FLAG_ESCAPE_DISABLE | WINHTTP_FLAG_ESCAPE_DISABLE_QUERY |
                                WINHTTP_FLAG_NULL_CODEPAGE;
    const auto completions = std::make_shared<Completions>();
    const OwnedInternet request(WinHttpOpenRequest(
        connection.get(), L"GET", widen(escapeForRequestLine(address.target)).c_str(), nullptr,
        WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
        asWritten | (address.secure ? WINHTTP_FLAG_SECURE : 0)));
    if (!request) failWithError(GetLastError());

    // Redirects are followed by ourselves: not every system follows a 303.
    DWORD features =
        WINHTTP_DISABLE_COOKIES | WINHTTP_DISABLE_REDIRECTS | WINHTTP_DISABLE_AUTHENTICATION;
    step(WinHttpSetOption(request.get(), WINHTTP_OPTION_DISABLE_FEATURE, &features,
                          sizeof features));
    auto held = std::make_unique<CompletionsPtr>(completions);
    auto context = reinterpret_cast<DWORD_PTR>(held.get());
    step(WinHttpSetOption(request.get(), WINHTTP_OPTION_CONTEXT_VALUE, &context, sizeof context));
    if (WinHttpSetStatusCallback(request.get(), &onStatus, WINHTTP_CALLBACK_FLAG_ALL_NOTIFICATIONS,
                                 0) == WINHTTP_INVALID_STATUS_CALLBACK)
        failWithError(GetLastError());
    [[maybe_unused]] const auto* handedOver = held.release();

    const auto completed = [&](DWORD expected) {
        return await(*completions, expected, deadline, whileWaiting_);
    };
    step(WinHttpSendRequest(request.get(), WINHTTP_NO_ADDITIONAL_HEADERS, 0,
                            WINHTTP_NO_REQUEST_DATA, 0, 0, context));
    completed(WINHTTP_CALLBACK_STATUS_SENDREQUEST_COMPLETE);
    step(WinHttpReceiveResponse(request.get(), nullptr));
    completed(WINHTTP_CALLBACK_STATUS_HEADERS_AVAILABLE);

    HttpReply reply;
    reply.status = statusOf(request.get());
    reply.location = header(request.get(), WINHTTP_QUERY_LOCATION);
    std::string& body = completions->body;
    for (;;) {
        step(WinHttpQueryDataAvailable(request.get(), nullptr));
        const DWORD available = completed(WINHTTP_CALLBACK_STATUS_DATA_AVAILABLE);
        if (available == 0) break;
        const std::size_t had = body.size();
        if (had + available > limits_.bytes) fail("The page is too large");
        body.resize(had + available);
        step(WinHttpReadData(request.get(), body.data() + had, available, nullptr));
        body.resize(had + completed(WINHTTP_CALLBACK_STATUS_READ_COMPLETE));
    }
    // Not every system reports a body that ends before its announced length.
    const std::string announced = header(request.get(), WINHTTP_QUERY_CONTENT_LENGTH);
    std::uint64_t length = body.size();
    std::from_chars(announced.data(), announced.data() + announced.size(), length);
    if (length > body.size()) failWithError(ERROR_WINHTTP_CONNECTION_ERROR);
    reply.body = std::move(body);
    return reply;
}

}  // namespace velvox
