#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace velvox {

/// Concatenates the pieces in one allocation.
inline std::string join(std::initializer_list<std::string_view> pieces) {
    std::size_t size = 0;
    for (const std::string_view piece : pieces) size += piece.size();
    std::string result;
    result.reserve(size);
    for (const std::string_view piece : pieces) result.append(piece);
    return result;
}

}  // namespace velvox
