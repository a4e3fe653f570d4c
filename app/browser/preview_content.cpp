#include "app/browser/preview_content.h"

#include <algorithm>
#include <string_view>

#include "base/ascii.h"

namespace velvox {

bool isRenderable(const std::string& type) {
    constexpr std::string_view types[] = {
        "text/html", "application/xhtml+xml", "text/plain", "image/gif", "image/jpeg", "image/png"};
    return std::ranges::any_of(
        types, [&](std::string_view known) { return ascii::equalIgnoringCase(type, known); });
}

std::string sizeText(const std::optional<std::uint64_t>& bytes) {
    if (!bytes) return {};
    std::string digits = std::to_string(*bytes);
    for (auto at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
    return digits + (*bytes == 1 ? " byte" : " bytes");
}

}  // namespace velvox
