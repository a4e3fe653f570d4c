#pragma once

#include <windows.h>

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "app/net/internet_session_win32.h"
#include "app/net/redirects.h"
#include "app/net/reply_header.h"

namespace velvox {

/// Limits of one transfer.
struct TransferLimits {
    std::chrono::milliseconds time{60'000};  ///< for everything, redirects included
    std::size_t bytes = 64U << 20;           ///< of one body; kept in memory up to 1.5 times
};

/// A window that gets a posted message, with `number` as its wParam, for each completed step of a
/// transfer. Without one the event of the transfer is set instead.
struct StepRecipient {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM number = 0;
};

/// One GET over WinHTTP, redirects followed. It proceeds in short steps on the thread that made it:
/// whenever WinHTTP has completed a step, `advance` takes the next one. Its destruction ends it at
/// once in any state. The body of a redirect is never read.
class HttpTransfer {
 public:
    using Clock = std::chrono::steady_clock;

    enum class Wants { HeaderOnly, WholeBody };

    /// Sends the first request. Throws RuntimeFailure (Transfer) with a plain reason.
    HttpTransfer(InternetSession& session, std::string_view address, Wants wants,
                 const TransferLimits& limits, const StepRecipient& recipient = {});
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;
    ~HttpTransfer();

    /// Takes the step that is due, if any. Returns true once everything requested has arrived.
    /// Throws RuntimeFailure (Transfer) with a plain reason; the transfer is then over.
    [[nodiscard]] bool advance();

    /// An event that is set when a step has completed; each request has its own.
    HANDLE completed() const noexcept;

    Clock::time_point deadline() const noexcept { return deadline_; }

    /// Bytes of the last reply's body so far.
    std::size_t received() const noexcept { return body_.size(); }

    /// The reason given when a transfer reaches its deadline.
    static constexpr const char* timeoutReason = "The server did not answer in time";
    [[noreturn]] static void failWithTimeout();

    /// Of the last reply.
    std::string address() const { return toString(chain_.current()); }
    const DocumentInfo& document() const noexcept { return header_.document; }
    std::string takeBody() noexcept { return std::move(body_); }

 private:
    struct Completion;

    void sendRequest();
    void close() noexcept;
    bool takeStep(DWORD completed, DWORD value);
    bool takeHeader();
    bool append(std::size_t count);
    void checkWhole() const;

    InternetSession& session_;
    RedirectChain chain_;
    Wants wants_;
    TransferLimits limits_;
    StepRecipient recipient_;
    Clock::time_point deadline_;
    std::shared_ptr<Completion> completion_;
    OwnedInternet connection_;
    OwnedInternet request_;
    ReplyHeader header_;
    std::string body_;
};

}  // namespace velvox
