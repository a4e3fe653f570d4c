#include "app/net/url_host.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <vector>

#include "base/ascii.h"
#include "base/runtime_failure.h"

namespace velvox {
namespace {

RuntimeFailure noHost() {
    return {Fault::Transfer, "The address has no host name that can be one"};
}

bool allDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), ascii::isDigit);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    for (;;) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == text.npos) return pieces;
        text.remove_prefix(end + 1);
    }
}

/// Parses a number; nullopt if `digits` is none. A number that is too large becomes the type's
/// maximum.
std::optional<std::uint64_t> number(std::string_view digits, int base) {
    std::uint64_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
    return error == std::errc{} ? value : std::numeric_limits<std::uint64_t>::max();
}

/// Parses a part of a dotted IPv4 address: hexadecimal after "0x", octal after "0", otherwise
/// decimal.
std::optional<std::uint64_t> ipv4Part(std::string_view part) {
    if (part.starts_with("0x")) return part.size() == 2 ? 0 : number(part.substr(2), 16);
    if (part.size() > 1 && part[0] == '0') return number(part.substr(1), 8);
    return number(part, 10);
}

/// The host as an IPv4 address if its last part is a number, because no host name ends in a number.
std::optional<std::string> canonicalIpv4(std::string_view host) {
    std::vector<std::string_view> parts = split(host, '.');
    if (parts.size() > 1 && parts.back().empty()) parts.pop_back();
    if (!allDigits(parts.back()) && !ipv4Part(parts.back())) return std::nullopt;
    if (parts.size() > 4) throw noHost();
    std::uint64_t address = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        // The last part fills all bytes that the other parts leave.
        const bool last = i + 1 == parts.size();
        const std::uint64_t limit = last ? 1ULL << (8 * (5 - parts.size())) : 256;
        const auto value = ipv4Part(parts[i]);
        if (!value || *value >= limit) throw noHost();
        address = address * limit + *value;
    }
    std::string text;
    for (int shift = 24; shift >= 0; shift -= 8)
        text += std::to_string((address >> shift) & 0xFF) + (shift > 0 ? "." : "");
    return text;
}

using Ipv6Pieces = std::vector<std::uint16_t>;

/// Appends the dotted IPv4 address in which an IPv6 address may end, as two 16-bit pieces.
void appendDotted(std::string_view text, Ipv6Pieces& pieces) {
    const auto parts = split(text, '.');
    if (parts.size() != 4) throw noHost();
    std::array<unsigned, 4> bytes{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool padded = parts[i].size() > 1 && parts[i][0] == '0';
        const auto value = number(parts[i], 10);
        if (!value || *value > 255 || padded) throw noHost();
        bytes[i] = static_cast<unsigned>(*value);
    }
    pieces.push_back(static_cast<std::uint16_t>(bytes[0] << 8 | bytes[1]));
    pieces.push_back(static_cast<std::uint16_t>(bytes[2] << 8 | bytes[3]));
}

/// Parses 16-bit pieces of an IPv6 address that are separated by colons. An empty text has no
/// pieces.
Ipv6Pieces ipv6Pieces(std::string_view text, bool mayEndDotted) {
    Ipv6Pieces pieces;
    if (text.empty()) return pieces;
    const auto groups = split(text, ':');
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const std::string_view group = groups[i];
        if (mayEndDotted && i + 1 == groups.size() && group.find('.') != group.npos) {
            appendDotted(group, pieces);
        } else {
            const auto value = number(group, 16);
            if (!value || group.size() > 4) throw noHost();
            pieces.push_back(static_cast<std::uint16_t>(*value));
        }
    }
    return pieces;
}

Ipv6Pieces parseIpv6(std::string_view text) {
    constexpr std::size_t size = 8;
    const auto gap = text.find("::");
    Ipv6Pieces pieces = ipv6Pieces(text.substr(0, gap), gap == text.npos);
    if (gap != text.npos) {
        const Ipv6Pieces rest = ipv6Pieces(text.substr(gap + 2), true);
        if (pieces.size() + rest.size() >= size) throw noHost();
        pieces.resize(size - rest.size());
        pieces.insert(pieces.end(), rest.begin(), rest.end());
    }
    if (pieces.size() != size) throw noHost();
    return pieces;
}

std::string canonicalIpv6(std::string_view text) {
    const Ipv6Pieces pieces = parseIpv6(text);
    // "::" replaces the longest run of two or more zero pieces, or the first such run if several
    // are longest.
    std::size_t gap = pieces.size();
    std::size_t gapSize = 1;
    for (std::size_t begin = 0; begin < pieces.size();) {
        std::size_t end = begin;
        while (end < pieces.size() && pieces[end] == 0) ++end;
        if (end - begin > gapSize) gap = begin, gapSize = end - begin;
        begin = end + 1;
    }
    std::string result = "[";
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i == gap) {
            result += i == 0 ? "::" : ":";
            i += gapSize - 1;
            continue;
        }
        std::array<char, 4> digits{};
        const auto end = std::to_chars(digits.begin(), digits.end(), pieces[i], 16).ptr;
        result.append(digits.begin(), end);
        if (i + 1 < pieces.size()) result += ':';
    }
    return result + ']';
}

std::string percentDecoded(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto digits = text.substr(i + 1, 2);
        const auto value = text[i] == '%' && digits.size() == 2 ? number(digits, 16) : std::nullopt;
        result += value ? static_cast<char>(*value) : text[i];
        if (value) i += 2;
    }
    return result;
}

}  // namespace

HostAndPort splitPort(std::string_view text) {
    const auto bracket = text.starts_with('[') ? text.find(']') : 0;
    const auto colon = text.find(':', bracket == text.npos ? text.size() : bracket);
    if (colon == text.npos) return {text, std::nullopt};
    const std::string_view digits = text.substr(colon + 1);
    if (digits.empty()) return {text.substr(0, colon), std::nullopt};
    const auto port = number(digits, 10);
    if (!port || *port > 65535)
        throw RuntimeFailure(Fault::Transfer, "The address has a port that cannot be one");
    return {text.substr(0, colon), static_cast<std::uint16_t>(*port)};
}

std::string canonicalHost(std::string_view host) {
    constexpr std::string_view forbidden = " #%/:<>?@[\\]^|\x7F";
    if (host.starts_with('[') && host.ends_with(']'))
        return canonicalIpv6(host.substr(1, host.size() - 2));
    std::string name = ascii::lowerCase(percentDecoded(host));
    if (name.empty() || name.size() > maxHostLength) throw noHost();
    for (const char c : name) {
        if (static_cast<unsigned char>(c) > 127)
            throw RuntimeFailure(Fault::Transfer, "The host name is not in its ASCII form");
        if (static_cast<unsigned char>(c) < ' ' || forbidden.find(c) != forbidden.npos)
            throw noHost();
    }
    if (auto address = canonicalIpv4(name)) return *address;
    return name;
}

}  // namespace velvox
