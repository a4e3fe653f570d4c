#include "base/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

Fault faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.fault();
    }
    ADD_FAILURE() << "nothing was thrown";
    return Fault::Platform;
}

// Cases that the fuzz target `text` leaves out.
TEST(TextTest, ChecksItsBounds) {
    const std::tuple<std::string_view, std::string_view, int, int> rows[] = {
        {"", "", 1, 0}, {"abc", "", 3, 3}, {"abc", "", 4, 0}, {"abc", "c", 99, 0}};
    for (const auto& [text, mark, start, place] : rows) {
        EXPECT_EQ(text::find(text, mark, start), place) << text << start;
        EXPECT_EQ(text::findIgnoringCase(text, mark, start), place) << text << start;
    }
    EXPECT_EQ(text::findIgnoringCase("=@", "=`"), 0) << "letters alone have two cases";
    EXPECT_EQ(text::slice("abcdef", 8, 1), "");
    const std::function<void()> refused[] = {
        [] { text::find("abc", "a", 0); }, [] { text::findIgnoringCase("abc", "a", 0); },
        [] { text::slice("abc", 0, 1); }, [] { text::slice("abc", 1, -1); }};
    for (const auto& action : refused) EXPECT_EQ(faultOf(action), Fault::InvalidCall);
}

// The search compares 16 places at once, and the places left at the end one by one. The vector has
// no spare byte, so that the sanitizer sees a read outside the text.
TEST(TextTest, FindsAtEveryPlaceAndReadsNothingOutside) {
    constexpr std::string_view letters = "Needle of 18 bytes";
    for (const std::size_t size : {1U, 2U, 3U, 18U}) {
        const std::string_view needle = letters.substr(0, size);
        for (std::size_t before = 0; before < 40; ++before)
            for (std::size_t after = 0; after < 40; ++after) {
                std::vector<char> bytes(before + size + after, 'e');
                std::ranges::copy(needle, bytes.begin() + static_cast<std::ptrdiff_t>(before));
                const std::string_view text(bytes.data(), bytes.size());
                const auto place = static_cast<text::Position>(before) + 1;
                EXPECT_EQ(text::find(text, needle), place);
                EXPECT_EQ(text::findIgnoringCase(text, "n" + std::string(needle.substr(1))), place);
                EXPECT_EQ(text::find(text.substr(0, before + size - 1), needle), 0);
                EXPECT_EQ(text::find(text, needle, place + 1), 0);
            }
    }
}

TEST(TextTest, ReplacesAndCounts) {
    EXPECT_EQ(text::replaceAll("a..b...c", "..", "."), "a.b..c");
    EXPECT_EQ(text::without("/a//b \xFF/", "/ "), "ab\xFF");
    const std::string page(5000, 'p');  // more than one block
    EXPECT_EQ(text::without(page + '/' + page, "/ "), page + page);
    EXPECT_EQ(text::replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(text::splitUpperBound("aaaa", "aa"), 2);
    EXPECT_EQ(text::splitUpperBound("none", ".flv"), 0);
    EXPECT_EQ(text::splitUpperBound("", ".flv"), -1);
}

TEST(TextTest, NumbersKeepTheirWidth) {
    EXPECT_EQ(text::toNumber(" 42 "), 42);
    for (const char* bad : {"", " ", "x", "4x", "4 2"})
        EXPECT_EQ(faultOf([&] { text::toNumber(bad); }), Fault::TypeMismatch) << bad;
    EXPECT_EQ(faultOf([] { text::toNumber("2147483648"); }), Fault::Overflow);
    EXPECT_EQ(text::toInt16(32767), 32767);
    EXPECT_EQ(faultOf([] { text::toInt16(32768); }), Fault::Overflow);
}

}  // namespace
}  // namespace velvox
