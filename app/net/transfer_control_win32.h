#pragma once

#include <functional>

#include "app/form1/transfer_control.h"
#include "app/net/http_transfer_win32.h"
#include "app/net/transfer_progress.h"

namespace velvox {

/// Fetches pages over WinHTTP. The calling thread waits for the page.
class WinHttpTransfer : public TransferControl {
 public:
    /// Advances the fetch. Returns true once the page has arrived, the fetch has failed or its time
    /// is over.
    using IsOver = std::function<bool()>;

    /// Called when window messages arrive, and at least every 100 ms, so that a window can repaint
    /// itself and be closed. The function may end the program, but must not start another fetch. If
    /// it runs for long, for example while a menu is open, it must call its argument from time to
    /// time and return once the argument returns true.
    using WhileWaiting = std::function<void(const IsOver&)>;

    explicit WinHttpTransfer(InternetSession& session, const TransferLimits& limits = {},
                             WhileWaiting whileWaiting = {});

    std::string OpenURL(std::string_view address) override;

    /// Called each time just before the WhileWaiting function.
    std::function<void(const TransferProgress&)> onProgress;

 private:
    InternetSession& session_;
    TransferLimits limits_;
    WhileWaiting whileWaiting_;
};

}  // namespace velvox
