#include "tools/drive/line.h"

#include <stdexcept>

namespace velvox::drive {
namespace {

constexpr std::string_view kPlain("\r\n\0\\\"", 5);
constexpr std::string_view kEscape = "rn0\\\"";

char unescaped(std::string_view line, size_t at) {
    const size_t which = at < line.size() ? kEscape.find(line[at]) : kEscape.npos;
    if (which == kEscape.npos) throw std::runtime_error("unknown escape");
    return kPlain[which];
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string line;
    line.reserve(text.size());
    for (const char c : text) {
        const size_t which = kPlain.find(c);
        if (which == kPlain.npos) {
            line += c;
        } else {
            line += '\\';
            line += kEscape[which];
        }
    }
    return line;
}

std::vector<std::string> words(std::string_view line) {
    std::vector<std::string> result;
    bool inWord = false;
    bool quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (!quoted && (c == ' ' || c == '\r')) {
            inWord = false;
            continue;
        }
        if (!inWord) result.emplace_back();
        inWord = true;
        if (c == '"') {
            quoted = !quoted;
        } else {
            result.back() += c == '\\' ? unescaped(line, ++i) : c;
        }
    }
    if (quoted) throw std::runtime_error("open quote");
    return result;
}

}  // namespace velvox::drive
