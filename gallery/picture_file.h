// Pictures as files, for documents and tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velvox {

/// Rows from the top, each pixel 0x00RRGGBB.
struct PictureData {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// A PNG file's bytes: true colour, not compressed.
std::string pngOf(const PictureData& picture);

/// A BMP file's bytes: 24 bits a pixel.
std::string bmpOf(const PictureData& picture);

/// By the name's ending, ".png" or else BMP. Throws RuntimeFailure (Platform).
void writePicture(const std::string& path, const PictureData& picture);

}  // namespace velvox
