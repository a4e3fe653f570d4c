#include "base/web_address.h"

#include <algorithm>

#include "base/ascii.h"

namespace velvox {
namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

bool isHexDigit(char c) {
    return ascii::isDigit(c) || (ascii::lower(c) >= 'a' && ascii::lower(c) <= 'f');
}

}  // namespace

bool isWebAddress(std::string_view address) {
    if (std::any_of(address.begin(), address.end(), isControl)) return false;
    for (const std::string_view scheme : {"http://", "https://"})
        if (address.size() > scheme.size() && ascii::startsWithIgnoringCase(address, scheme))
            return true;
    return false;
}

std::string percentEncode(std::string_view text, std::string_view unsafe) {
    constexpr std::string_view hex = "0123456789ABCDEF";
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > 127 || isControl(c) || unsafe.find(c) != unsafe.npos) {
            result.push_back('%');
            result.push_back(hex[byte >> 4]);
            result.push_back(hex[byte & 0xF]);
        } else {
            result.push_back(c);
        }
    }
    return result;
}

std::string escapeForShell(std::string_view address) {
    std::string result;
    for (;;) {
        const auto percent = address.find('%');
        result += percentEncode(address.substr(0, percent), " \"<>\\^`{|}");
        if (percent == address.npos) return result;
        address.remove_prefix(percent + 1);
        const bool encodes = address.size() > 1 && isHexDigit(address[0]) && isHexDigit(address[1]);
        result += encodes ? "%" : "%25";
    }
}

}  // namespace velvox
