#include "app/net/transfer_control_win32.h"

#include <algorithm>
#include <utility>

#include "base/system_win32.h"

namespace velvox {
namespace {

using Clock = HttpTransfer::Clock;
using std::chrono::milliseconds;

// Timers are left out: they would wake the wait for nothing.
constexpr DWORD awaitedInput =
    QS_SENDMESSAGE | QS_POSTMESSAGE | QS_PAINT | QS_MOUSEBUTTON | QS_MOUSEMOVE | QS_KEY;

// A PeekMessage with a filter marks all queued messages as seen, after which the wait no longer
// wakes for them; and a body that streams in fast keeps the wait from ever seeing a message.
constexpr milliseconds maxPollInterval{100};

}  // namespace

WinHttpTransfer::WinHttpTransfer(InternetSession& session, const TransferLimits& limits,
                                 std::function<void()> whileWaiting)
    : session_(session), limits_(limits), whileWaiting_(std::move(whileWaiting)) {}

std::string WinHttpTransfer::OpenURL(std::string_view address) {
    HttpTransfer transfer(session_, address, HttpTransfer::Wants::WholeBody, limits_);
    auto lastPoll = Clock::now();
    while (!transfer.advance()) {
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
        whileWaiting_();
        lastPoll = Clock::now();
    }
    return transfer.takeBody();
}

}  // namespace velvox
