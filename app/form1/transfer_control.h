#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// Fetches pages over HTTP.
class TransferControl {
 public:
    virtual ~TransferControl() = default;

    /// Requests `address` and returns the body of the reply, whatever its status. Blocks until the
    /// whole body has arrived. If that fails, throws RuntimeFailure (Transfer) with a readable
    /// reason.
    virtual std::string OpenURL(std::string_view address) = 0;
};

}  // namespace velvox
