#include "app/form1/given_address.h"

#include "base/ascii.h"
#include "base/web_address.h"

namespace velvox {
namespace {

constexpr std::string_view lineEnds = "\r\n";

std::string_view takeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find_first_of(lineEnds));
    text.remove_prefix(std::min(text.size(), line.size() + 1));
    return ascii::trimmed(line);
}

}  // namespace

std::string givenAddress(std::string_view text) {
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.size() > maxAddressBytes) return {};
        if (!line.empty()) return std::string(line);
    }
    return {};
}

std::string shortcutAddress(std::string_view content) {
    constexpr std::string_view section = "[InternetShortcut]";
    constexpr std::string_view key = "URL=";
    bool inSection = false;
    while (!content.empty()) {
        const std::string_view line = takeLine(content);
        if (line.starts_with('[')) inSection = ascii::equalIgnoringCase(line, section);
        if (inSection && ascii::startsWithIgnoringCase(line, key))
            return givenAddress(line.substr(key.size()));
    }
    return {};
}

}  // namespace velvox
