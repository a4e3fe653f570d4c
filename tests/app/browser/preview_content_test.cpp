#include "app/browser/preview_content.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(PreviewContentTest, WritesSizesInGroupsOfThree) {
    EXPECT_EQ(sizeText({}), "");
    EXPECT_EQ(sizeText(1), "1 byte");
    EXPECT_EQ(sizeText(999), "999 bytes");
    EXPECT_EQ(sizeText(1234567), "1,234,567 bytes");
}

}  // namespace
}  // namespace velvox
