#include "app/browser/preview_content.h"

#include <algorithm>
#include <string_view>

#include "base/ascii.h"
#include "base/group_digits.h"

namespace velvox {

bool isRenderable(const std::string& type) {
    constexpr std::string_view types[] = {
        "text/html", "application/xhtml+xml", "text/plain", "image/gif", "image/jpeg", "image/png"};
    return std::ranges::any_of(
        types, [&](std::string_view known) { return ascii::equalIgnoringCase(type, known); });
}

std::string sizeText(const std::optional<std::uint64_t>& bytes) {
    if (!bytes) return {};
    return groupDigits(*bytes) + (*bytes == 1 ? " byte" : " bytes");
}

}  // namespace velvox
