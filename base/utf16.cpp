#include "base/utf16.h"

#include <cstdint>

namespace velvox {
namespace {

struct Decoded {
    char32_t code;
    std::size_t bytes;
};

// Decodes the first code point of a non-empty text. Overlong forms, surrogates and codes above
// U+10FFFF are invalid UTF-8, so their first byte is read as a Latin-1 character.
Decoded decode(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
    const std::uint8_t lead = byte(0);
    const Decoded latin1{lead, 1};
    std::size_t tail = 0;
    char32_t code = 0;
    char32_t least = 0;
    if (lead < 0x80) return latin1;
    if ((lead & 0xE0) == 0xC0) {
        tail = 1, code = lead & 0x1F, least = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        tail = 2, code = lead & 0x0F, least = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        tail = 3, code = lead & 0x07, least = 0x10000;
    } else {
        return latin1;
    }
    if (text.size() <= tail) return latin1;
    for (std::size_t i = 1; i <= tail; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return latin1;
        code = (code << 6) | (byte(i) & 0x3F);
    }
    if (code < least || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return latin1;
    return {code, tail + 1};
}

void appendUtf8(std::string& out, char32_t code) {
    const auto put = [&](char32_t value) { out.push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | (code >> 6));
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | (code >> 12));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | (code >> 18));
        put(0x80 | ((code >> 12) & 0x3F));
        put(0x80 | ((code >> 6) & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

}  // namespace

std::u16string toUtf16(std::string_view bytes) {
    std::u16string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded next = decode(bytes);
        bytes.remove_prefix(next.bytes);
        if (next.code < 0x10000) {
            result.push_back(static_cast<char16_t>(next.code));
        } else {
            result.push_back(static_cast<char16_t>(0xD800 + ((next.code - 0x10000) >> 10)));
            result.push_back(static_cast<char16_t>(0xDC00 + ((next.code - 0x10000) & 0x3FF)));
        }
    }
    return result;
}

std::string_view firstCharacters(std::string_view bytes, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < bytes.size(); --count) end += decode(bytes.substr(end)).bytes;
    return bytes.substr(0, end);
}

std::size_t characterCount(std::string_view bytes) {
    std::size_t count = 0;
    for (; !bytes.empty(); ++count) bytes.remove_prefix(decode(bytes).bytes);
    return count;
}

std::string toBytes(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (code >= 0xD800 && code <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
            text[i + 1] <= 0xDFFF) {
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (code >= 0xD800 && code <= 0xDFFF) {
            code = 0xFFFD;
        }
        appendUtf8(result, code);
    }
    return result;
}

}  // namespace velvox
