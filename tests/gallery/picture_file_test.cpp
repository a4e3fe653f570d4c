#include "gallery/picture_file.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

std::string hexOf(std::string_view bytes) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string hex;
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        hex += digits[byte >> 4];
        hex += digits[byte & 15];
    }
    return hex;
}

std::uint32_t littleAt(std::string_view bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<std::uint8_t>(bytes.at(at + static_cast<std::size_t>(i)));
    return value;
}

// The bytes were read back by another program, which checks every sum in them.
TEST(PictureFileTest, ASmallPngIsByteByByteRight) {
    const PictureData picture{2, 1, {0x112233, 0xFF8001}};
    EXPECT_EQ(hexOf(pngOf(picture)),
              "89504E470D0A1A0A"
              "0000000D49484452000000020000000108020000007B40E8DD"
              "0000001249444154"
              "780101"
              "0700F8FF"
              "00112233FF8001"
              "05E101E7"
              "B19F2320"
              "0000000049454E44AE426082");
}

// More than one stored block holds: their lengths add up and the last one says that it is.
TEST(PictureFileTest, ALargePngIsStoredInBlocks) {
    PictureData picture{200, 150, {}};
    for (std::uint32_t i = 0; i < 200 * 150; ++i) picture.pixels.push_back(i * 7919 & 0xFFFFFF);
    const std::string png = pngOf(picture);
    std::string rows;
    std::size_t at = 33 + 8 + 2;
    bool last = false;
    for (; !last; at += 5 + littleAt(png, at + 1, 2)) {
        last = png.at(at) == 1;
        ASSERT_EQ(littleAt(png, at + 1, 2) ^ 0xFFFF, littleAt(png, at + 3, 2));
        rows += png.substr(at + 5, littleAt(png, at + 1, 2));
    }
    ASSERT_EQ(rows.size(), 150U * (1 + 3 * 200));
    for (std::size_t y = 0; y < 150; ++y) {
        ASSERT_EQ(rows[y * 601], 0) << "no filter";
        for (std::size_t x = 0; x < 200; ++x) {
            const std::uint32_t pixel = picture.pixels[y * 200 + x];
            const std::size_t first = y * 601 + 1 + 3 * x;
            ASSERT_EQ(hexOf(rows.substr(first, 3)),
                      hexOf(std::string{static_cast<char>(pixel >> 16),
                                        static_cast<char>(pixel >> 8), static_cast<char>(pixel)}));
        }
    }
    EXPECT_EQ(png.size(), at + 4 + 4 + 12) << "sum, check and end";
}

TEST(PictureFileTest, ABmpHasItsRowsFromBelowInFours) {
    const PictureData picture{1, 2, {0x112233, 0x445566}};
    const std::string bmp = bmpOf(picture);
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    EXPECT_EQ(littleAt(bmp, 2, 4), bmp.size());
    EXPECT_EQ(littleAt(bmp, 10, 4), 54U);
    EXPECT_EQ(littleAt(bmp, 18, 4), 1U);
    EXPECT_EQ(littleAt(bmp, 22, 4), 2U);
    EXPECT_EQ(littleAt(bmp, 28, 2), 24U);
    EXPECT_EQ(hexOf(bmp.substr(54)), "6655440033221100");
}

TEST(PictureFileTest, APlaceThatCannotBeWrittenIsReported) {
    EXPECT_THROW(writePicture("no such folder/picture.png", {1, 1, {0}}), RuntimeFailure);
}

}  // namespace
}  // namespace velvox
