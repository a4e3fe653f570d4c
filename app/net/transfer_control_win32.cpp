#include "app/net/transfer_control_win32.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "base/system_win32.h"

namespace velvox {
namespace {

using Clock = HttpTransfer::Clock;
using std::chrono::milliseconds;

// Input that ends the wait for a fetch's next step. Timers would end it needlessly, so they are not
// included.
constexpr DWORD awaitedInput =
    QS_SENDMESSAGE | QS_POSTMESSAGE | QS_PAINT | QS_MOUSEBUTTON | QS_MOUSEMOVE | QS_KEY;

// Messages are handled at least this often. The wait alone could miss them for two reasons:
// PeekMessage with a filter marks all queued messages as seen, after which they no longer end the
// wait; and a body that arrives fast ends every wait before a message does.
constexpr milliseconds maxPollInterval{100};

// A page fetch that is advanced both by the waiting loop of OpenURL and by a timer while a menu is
// open.
class Fetch {
 public:
    explicit Fetch(HttpTransfer& transfer) : transfer_(transfer) {}

    /// Takes the steps that are due. `advance` rethrows an exception of these steps later.
    bool isOver() noexcept {
        // The timer ticks only every 100 ms. With one step per tick a page would take minutes.
        constexpr int stepsOfATick = 16;
        try {
            for (int step = 0; step < stepsOfATick && !done_ && !failure_; ++step)
                done_ = transfer_.advance();
        } catch (...) {
            failure_ = std::current_exception();
        }
        return done_ || failure_ || Clock::now() >= transfer_.deadline();
    }

    bool advance() {
        if (failure_) std::rethrow_exception(failure_);
        return done_ || (done_ = transfer_.advance());
    }

 private:
    HttpTransfer& transfer_;
    bool done_ = false;
    std::exception_ptr failure_;
};

}  // namespace

WinHttpTransfer::WinHttpTransfer(InternetSession& session, const TransferLimits& limits,
                                 WhileWaiting whileWaiting)
    : session_(session), limits_(limits), whileWaiting_(std::move(whileWaiting)) {}

std::string WinHttpTransfer::OpenURL(std::string_view address) {
    HttpTransfer transfer(session_, address, HttpTransfer::Wants::WholeBody, limits_);
    Fetch fetch(transfer);
    auto lastPoll = Clock::now();
    while (!fetch.advance()) {
        const auto now = Clock::now();
        if (now >= transfer.deadline()) HttpTransfer::failWithTimeout();
        auto until = transfer.deadline();
        if (whileWaiting_) until = std::min(until, lastPoll + maxPollInterval);
        const auto wait = std::max(std::chrono::ceil<milliseconds>(until - now), milliseconds(0));
        const HANDLE completed = transfer.completed();
        const DWORD result =
            MsgWaitForMultipleObjects(1, &completed, FALSE, static_cast<DWORD>(wait.count()),
                                      whileWaiting_ ? awaitedInput : 0);
        if (result == WAIT_FAILED) throwLastError("MsgWaitForMultipleObjects");
        if (!whileWaiting_ || (result == WAIT_OBJECT_0 && Clock::now() < until)) continue;
        if (onProgress)
            onProgress({transfer.received(),
                        std::chrono::duration_cast<milliseconds>(
                            Clock::now() - (transfer.deadline() - limits_.time)),
                        limits_.time});
        whileWaiting_([&] { return fetch.isOver(); });
        lastPoll = Clock::now();
    }
    return transfer.takeBody();
}

}  // namespace velvox
