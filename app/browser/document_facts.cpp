#include "app/browser/document_facts.h"

#include <algorithm>
#include <charconv>

namespace velvox {
namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool sameName(std::string_view a, std::string_view lowerCase) {
    return std::ranges::equal(a, lowerCase, [](char x, char y) {
        return (x >= 'A' && x <= 'Z' ? static_cast<char>(x - 'A' + 'a') : x) == y;
    });
}

}  // namespace

DocumentFacts factsOfHeader(std::string_view header) {
    DocumentFacts facts;
    while (!header.empty()) {
        const std::string_view line = header.substr(0, header.find('\n'));
        header.remove_prefix(std::min(header.size(), line.size() + 1));
        const auto colon = line.find(':');
        if (colon == line.npos) continue;
        const std::string_view name = line.substr(0, colon);
        const std::string_view value = trimmed(line.substr(colon + 1));
        if (sameName(name, "content-type")) {
            facts.type = trimmed(value.substr(0, value.find(';')));
        } else if (sameName(name, "content-length")) {
            std::uint64_t size = 0;
            const auto [end, error] =
                std::from_chars(value.data(), value.data() + value.size(), size);
            if (error == std::errc{} && end == value.data() + value.size()) facts.size = size;
        }
    }
    return facts;
}

std::string sizeText(const std::optional<std::uint64_t>& bytes) {
    if (!bytes) return {};
    std::string digits = std::to_string(*bytes);
    for (auto at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
    return digits + (*bytes == 1 ? " byte" : " bytes");
}

}  // namespace velvox
