#include "controlkit/sort.h"

#include "base/ascii.h"

namespace velvox {
namespace {

// Removes the digits at the start of `rest` and returns them without leading zeros.
std::string_view takeNumber(std::string_view& rest) {
    const auto end = std::ranges::find_if_not(rest, ascii::isDigit);
    std::string_view number = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

std::strong_ordering compareNumbers(std::string_view a, std::string_view b) {
    return a.size() != b.size() ? a.size() <=> b.size() : a <=> b;
}

}  // namespace

std::strong_ordering compareNaturally(std::string_view a, std::string_view b) {
    std::string_view left = a;
    std::string_view right = b;
    while (!left.empty() && !right.empty()) {
        std::strong_ordering order = std::strong_ordering::equal;
        if (ascii::isDigit(left.front()) && ascii::isDigit(right.front())) {
            const std::string_view number = takeNumber(left);
            order = compareNumbers(number, takeNumber(right));
        } else {
            order = static_cast<unsigned char>(ascii::lower(left.front())) <=>
                    static_cast<unsigned char>(ascii::lower(right.front()));
            left.remove_prefix(1);
            right.remove_prefix(1);
        }
        if (std::is_neq(order)) return order;
    }
    if (left.empty() != right.empty()) return right.empty() <=> left.empty();
    return a <=> b;
}

}  // namespace velvox
