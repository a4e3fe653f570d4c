#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace velvox {

struct TransferProgress {
    std::uint64_t bytes = 0;
    std::chrono::milliseconds elapsed{};
    std::chrono::milliseconds limit{};
};

/// A text such as "1,234 KB, 12 of 60 s". Empty in the first second, in which most fetches end.
std::string progressText(const TransferProgress& progress);

}  // namespace velvox
