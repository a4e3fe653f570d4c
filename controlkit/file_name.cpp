#include "controlkit/file_name.h"

#include "base/ascii.h"
#include "base/utf16.h"

namespace velvox {
namespace {

bool matchesOne(std::string_view name, std::string_view pattern) {
    // Backtracking state: when the pattern after the last `*` does not match, `*` takes one more
    // byte.
    std::string_view afterStar;
    std::string_view retry;
    bool hasStar = false;
    while (!name.empty()) {
        if (!pattern.empty() && pattern.front() == '*') {
            pattern.remove_prefix(1);
            afterStar = pattern;
            retry = name;
            hasStar = true;
            continue;
        }
        const std::string_view character = firstCharacters(name, 1);
        if (!pattern.empty() && pattern.front() == '?') {
            pattern.remove_prefix(1);
            name.remove_prefix(character.size());
        } else if (!pattern.empty() &&
                   ascii::lower(pattern.front()) == ascii::lower(name.front())) {
            pattern.remove_prefix(1);
            name.remove_prefix(1);
        } else if (hasStar) {
            retry.remove_prefix(1);
            name = retry;
            pattern = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == pattern.npos;
}

}  // namespace

std::string_view fileExtension(std::string_view path) {
    const auto separator = path.find_last_of("\\/");
    const std::string_view name = separator == path.npos ? path : path.substr(separator + 1);
    const auto dot = name.rfind('.');
    return dot == name.npos || dot == 0 ? std::string_view{} : name.substr(dot + 1);
}

bool matchesPattern(std::string_view name, std::string_view pattern) {
    for (;;) {
        const auto end = pattern.find(';');
        if (matchesOne(name, pattern.substr(0, end))) return true;
        if (end == pattern.npos) return false;
        pattern.remove_prefix(end + 1);
    }
}

}  // namespace velvox
