#include "gallery/picture_file.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

std::string hexOf(std::string_view bytes) {
    std::string hex;
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        for (const int digit : {byte >> 4, byte & 15}) hex += "0123456789ABCDEF"[digit];
    }
    return hex;
}

// The bytes were read back by another program, which checks every sum in them.
TEST(PictureFileTest, ASmallPngIsByteByByteRight) {
    const PictureData picture{2, 1, {0x112233, 0xFF8001}};
    EXPECT_EQ(hexOf(pngOf(picture)),
              "89504E470D0A1A0A0000000D49484452000000020000000108020000007B40E8DD"
              "00000012494441547801010700F8FF00112233FF800105E101E7B19F2320"
              "0000000049454E44AE426082");
}

// More than one stored block holds: each tells its length, and the last one that it is.
TEST(PictureFileTest, ALargePngIsStoredInBlocks) {
    const std::string png = pngOf({200, 150, std::vector<std::uint32_t>(200 * 150, 0xFFFFFF)});
    const std::size_t first = 33 + 8 + 2;
    const std::size_t second = first + 5 + 65535;
    const std::size_t sum = second + 5 + 150 * (1 + 3 * 200) - 65535;
    EXPECT_EQ(hexOf(png.substr(first, 6)), "00FFFF000000");
    EXPECT_EQ(hexOf(png.substr(second, 6)), "012760D89FFF");
    EXPECT_EQ(hexOf(png.substr(sum, 4)), "A59D44F3") << "over both blocks";
    EXPECT_EQ(png.size(), sum + 4 + 4 + 12);
}

TEST(PictureFileTest, ABmpHasItsRowsFromBelowInFours) {
    const PictureData picture{1, 2, {0x112233, 0x445566}};
    EXPECT_EQ(hexOf(bmpOf(picture)),
              "424D3E0000000000000036000000"
              "28000000010000000200000001001800000000000000000000000000000000000000000000000000"
              "6655440033221100");
}

TEST(PictureFileTest, APlaceThatCannotBeWrittenIsReported) {
    EXPECT_THROW(writePicture("no such folder/picture.png", {1, 1, {0}}), RuntimeFailure);
}

}  // namespace
}  // namespace velvox
