#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <memory>

#include "app/form1/transfer_control.h"
#include "app/net/internet_session_win32.h"
#include "app/net/redirects.h"

namespace velvox {

/// What one transfer may take.
struct TransferLimits {
    std::chrono::milliseconds time{60'000};  ///< for everything, redirects included
    std::size_t bytes = 256U << 20;          ///< of one body
};

/// Page fetches over WinHTTP with the user's proxy settings. The calling thread waits; sent
/// messages are answered meanwhile and `whileWaiting` is called when window messages arrive, so
/// that a window can repaint itself. It may end the program, but must not start another fetch.
class WinHttpTransfer : public TransferControl {
 public:
    explicit WinHttpTransfer(TransferLimits limits = {}, std::function<void()> whileWaiting = {});
    ~WinHttpTransfer() override;

    std::string OpenURL(std::string_view address) override;

 private:
    using Deadline = std::chrono::steady_clock::time_point;

    HINTERNET session();
    HttpReply exchange(const HttpAddress& address, Deadline deadline);

    TransferLimits limits_;
    std::function<void()> whileWaiting_;
    OwnedInternet session_;
};

}  // namespace velvox
