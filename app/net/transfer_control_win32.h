#pragma once

#include <functional>

#include "app/form1/transfer_control.h"
#include "app/net/http_transfer_win32.h"
#include "app/net/transfer_progress.h"

namespace velvox {

/// Page fetches over WinHTTP. The calling thread waits.
class WinHttpTransfer : public TransferControl {
 public:
    /// Advances the fetch; true once the page has arrived or has been given up.
    using IsOver = std::function<bool()>;

    /// Called when window messages arrive and every 100 ms at the latest, so that a window can
    /// repaint itself and be closed. It may end the program, but must not start another fetch. If
    /// it takes long, as while a menu is open, it has to call its argument from time to time and
    /// to return when the fetch is over.
    using WhileWaiting = std::function<void(const IsOver&)>;

    explicit WinHttpTransfer(InternetSession& session, const TransferLimits& limits = {},
                             WhileWaiting whileWaiting = {});

    std::string OpenURL(std::string_view address) override;

    /// Called as often as `whileWaiting`, before it.
    std::function<void(const TransferProgress&)> onProgress;

 private:
    InternetSession& session_;
    TransferLimits limits_;
    WhileWaiting whileWaiting_;
};

}  // namespace velvox
