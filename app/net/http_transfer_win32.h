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

struct TransferLimits {
    std::chrono::milliseconds time{60'000};  ///< for the whole transfer, redirects included
    std::size_t bytes = 64U << 20;  ///< maximum body size; its buffer takes up to 1.5 times that
};

/// The window that gets a posted message for each completed step of a transfer, with `number` as
/// wParam. Without a window, the transfer sets an event instead.
struct StepRecipient {
    HWND window = nullptr;
    UINT message = 0;
    WPARAM number = 0;
};

/// One GET over WinHTTP that follows redirects. It proceeds in short steps on the thread that
/// created it: after WinHTTP has completed a step, `advance` starts the next one. Destroying the
/// transfer ends it at once in any state. The body of a redirect is never read.
class HttpTransfer {
 public:
    using Clock = std::chrono::steady_clock;

    enum class Wants { HeaderOnly, WholeBody };

    /// Sends the first request. Throws RuntimeFailure (Transfer) with a readable reason.
    HttpTransfer(InternetSession& session, std::string_view address, Wants wants,
                 const TransferLimits& limits, const StepRecipient& recipient = {});
    HttpTransfer(const HttpTransfer&) = delete;
    HttpTransfer& operator=(const HttpTransfer&) = delete;
    ~HttpTransfer();

    /// Starts the next step if a step has completed. Returns true once everything requested has
    /// arrived. Throws RuntimeFailure (Transfer) with a readable reason; the transfer is then over.
    [[nodiscard]] bool advance();

    /// The event that is set when a step has completed. Each request of a transfer has its own
    /// event.
    HANDLE completed() const noexcept;

    Clock::time_point deadline() const noexcept { return deadline_; }

    /// Number of bytes of the last reply's body that have arrived so far.
    std::size_t received() const noexcept { return body_.size(); }

    /// Error text of a transfer that reaches its deadline.
    static constexpr const char* timeoutReason = "The server did not answer in time";
    [[noreturn]] static void failWithTimeout();

    /// Address and document of the last reply.
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
