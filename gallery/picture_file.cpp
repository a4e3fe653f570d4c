#include "gallery/picture_file.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

void appendBig(std::string& out, std::uint32_t value) {
    for (int bits = 24; bits >= 0; bits -= 8) out.push_back(static_cast<char>(value >> bits));
}

void appendLittle(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) out.push_back(static_cast<char>(value >> (8 * i)));
}

std::uint32_t crcOf(std::string_view bytes) {
    static const auto table = [] {
        std::array<std::uint32_t, 256> entries{};
        for (std::uint32_t i = 0; i < 256; ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? 0xEDB88320U ^ (value >> 1) : value >> 1;
            entries[i] = value;
        }
        return entries;
    }();
    std::uint32_t crc = 0xFFFFFFFFU;
    for (const char c : bytes)
        crc = table[(crc ^ static_cast<std::uint8_t>(c)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

std::uint32_t adlerOf(std::string_view bytes) {
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char c : bytes) {
        a = (a + static_cast<std::uint8_t>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return (b << 16) | a;
}

void appendChunk(std::string& out, std::string_view type, std::string_view data) {
    appendBig(out, static_cast<std::uint32_t>(data.size()));
    const std::string body = std::string(type) + std::string(data);
    out += body;
    appendBig(out, crcOf(body));
}

// A zlib stream of stored blocks, each at most 65535 bytes long.
std::string stored(std::string_view data) {
    std::string out("\x78\x01", 2);
    const std::uint32_t adler = adlerOf(data);
    do {
        const std::string_view block = data.substr(0, 65535);
        data.remove_prefix(block.size());
        out.push_back(data.empty() ? 1 : 0);
        const auto length = static_cast<std::uint32_t>(block.size());
        appendLittle(out, length, 2);
        appendLittle(out, ~length, 2);
        out += block;
    } while (!data.empty());
    appendBig(out, adler);
    return out;
}

std::uint32_t pixelAt(const PictureData& picture, int x, int y) {
    return picture.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width) +
                          static_cast<std::size_t>(x)];
}

}  // namespace

std::string pngOf(const PictureData& picture) {
    std::string rows;
    for (int y = 0; y < picture.height; ++y) {
        rows.push_back(0);
        for (int x = 0; x < picture.width; ++x) {
            const std::uint32_t pixel = pixelAt(picture, x, y);
            for (const int bits : {16, 8, 0}) rows.push_back(static_cast<char>(pixel >> bits));
        }
    }
    std::string header;
    appendBig(header, static_cast<std::uint32_t>(picture.width));
    appendBig(header, static_cast<std::uint32_t>(picture.height));
    header += std::string("\x08\x02\x00\x00\x00", 5);
    std::string out("\x89PNG\r\n\x1A\n");
    appendChunk(out, "IHDR", header);
    appendChunk(out, "IDAT", stored(rows));
    appendChunk(out, "IEND", "");
    return out;
}

std::string bmpOf(const PictureData& picture) {
    constexpr std::uint32_t headers = 54;
    const auto width = static_cast<std::uint32_t>(picture.width);
    const auto height = static_cast<std::uint32_t>(picture.height);
    const std::uint32_t rowBytes = (width * 3 + 3) / 4 * 4;
    std::string out = "BM";
    appendLittle(out, headers + rowBytes * height, 4);
    appendLittle(out, 0, 4);
    appendLittle(out, headers, 4);
    appendLittle(out, 40, 4);
    appendLittle(out, width, 4);
    appendLittle(out, height, 4);
    appendLittle(out, 1, 2);
    appendLittle(out, 24, 2);
    out.append(24, '\0');
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::size_t start = out.size();
        for (int x = 0; x < picture.width; ++x) appendLittle(out, pixelAt(picture, x, y), 3);
        out.resize(start + rowBytes);
    }
    return out;
}

void writePicture(const std::string& path, const PictureData& picture) {
    const std::string bytes = path.ends_with(".png") ? pngOf(picture) : bmpOf(picture);
    std::FILE* file = std::fopen(path.c_str(), "wb");
    const bool written = file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    if (!file || std::fclose(file) != 0 || !written)
        throw RuntimeFailure(Fault::Platform, "The picture " + path + " cannot be written");
}

}  // namespace velvox
