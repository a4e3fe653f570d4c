#pragma once

#include <string>
#include <string_view>

namespace velvox {

/// Fetches whole pages.
class TransferControl {
 public:
    virtual ~TransferControl() = default;

    /// The body of the reply to one request for `address`, whatever its status. Returns when the
    /// whole body is there; throws RuntimeFailure (Transfer) with a plain reason otherwise.
    virtual std::string OpenURL(std::string_view address) = 0;
};

}  // namespace velvox
