#pragma once

#include <functional>

#include "app/form1/transfer_control.h"
#include "app/net/http_transfer_win32.h"

namespace velvox {

/// Page fetches over WinHTTP. The calling thread waits. Meanwhile `whileWaiting` is called when
/// window messages arrive and every 100 ms at the latest, so that a window can repaint itself and
/// be closed. It may end the program, but must not start another fetch.
class WinHttpTransfer : public TransferControl {
 public:
    explicit WinHttpTransfer(InternetSession& session, const TransferLimits& limits = {},
                             std::function<void()> whileWaiting = {});

    std::string OpenURL(std::string_view address) override;

 private:
    InternetSession& session_;
    TransferLimits limits_;
    std::function<void()> whileWaiting_;
};

}  // namespace velvox
