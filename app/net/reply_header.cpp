#include "app/net/reply_header.h"

#include <algorithm>
#include <charconv>

#include "base/ascii.h"

namespace velvox {
namespace {

template <class Number>
std::optional<Number> wholeNumber(std::string_view digits) {
    Number number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc{} || stop != end) return std::nullopt;
    return number;
}

// The status in a line such as "HTTP/1.1 200 OK"; 0 for any other line.
int statusOf(std::string_view line) {
    const auto blank = line.find(' ');
    if (!line.starts_with("HTTP/") || blank == line.npos) return 0;
    return wholeNumber<int>(ascii::trimmed(line.substr(blank)).substr(0, 3)).value_or(0);
}

}  // namespace

ReplyHeader parseReplyHeader(std::string_view header) {
    ReplyHeader reply;
    reply.status = statusOf(header.substr(0, header.find('\n')));
    std::optional<std::string_view> location, type, length;
    bool encoded = false;
    while (!header.empty()) {
        const std::string_view line = header.substr(0, header.find('\n'));
        header.remove_prefix(std::min(header.size(), line.size() + 1));
        const auto colon = line.find(':');
        if (colon == line.npos) continue;
        const std::string name = ascii::lowerCase(line.substr(0, colon));
        const std::string_view value = ascii::trimmed(line.substr(colon + 1));
        if (name == "location" && !location) location = value;
        if (name == "content-type" && !type) type = value;
        if (name == "content-length" && !length) length = value;
        if (name == "transfer-encoding") encoded = true;
    }
    reply.location = location.value_or("");
    if (type) reply.document.type = ascii::trimmed(type->substr(0, type->find(';')));
    if (length && !encoded) reply.document.size = wholeNumber<std::uint64_t>(*length);
    return reply;
}

}  // namespace velvox
