#include "app/net/transfer_progress.h"

#include "base/group_digits.h"

namespace velvox {

std::string progressText(const TransferProgress& progress) {
    using std::chrono::duration_cast;
    using std::chrono::seconds;
    const auto elapsed = duration_cast<seconds>(progress.elapsed).count();
    if (elapsed < 1) return {};
    constexpr std::uint64_t kilobyte = 1024;
    const std::string size = progress.bytes < kilobyte
                                 ? groupDigits(progress.bytes) + " bytes"
                                 : groupDigits(progress.bytes / kilobyte) + " KB";
    return size + ", " + std::to_string(elapsed) + " of " +
           std::to_string(duration_cast<seconds>(progress.limit).count()) + " s";
}

}  // namespace velvox
