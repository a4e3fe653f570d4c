#pragma once

#include <cstdint>
#include <string>

namespace velvox {

/// Formats a number like 1,234,567.
inline std::string groupDigits(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (auto at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
    return digits;
}

}  // namespace velvox
