#include "app/net/transfer_progress.h"

#include <gtest/gtest.h>

namespace velvox {
namespace {

TEST(TransferProgressTest, SaysBytesAndSecondsAfterTheFirst) {
    using std::chrono::milliseconds;
    const auto text = [](std::uint64_t bytes, int elapsed) {
        return progressText({bytes, milliseconds(elapsed), milliseconds(60'000)});
    };
    EXPECT_EQ(text(5, 999), "");
    EXPECT_EQ(text(0, 1000), "0 bytes, 1 of 60 s");
    EXPECT_EQ(text(1023, 59'999), "1,023 bytes, 59 of 60 s");
    EXPECT_EQ(text(1024, 2000), "1 KB, 2 of 60 s");
    EXPECT_EQ(text(64U << 20, 12'345), "65,536 KB, 12 of 60 s");
}

}  // namespace
}  // namespace velvox
