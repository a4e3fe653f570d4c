#include "base/text.h"

#include <gtest/gtest.h>

#include <functional>

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

TEST(TextTest, FindsFromAPlaceInTheSameOrInAnyCase) {
    const std::tuple<std::string_view, std::string_view, int, int, int> rows[] = {
        {"", "", 1, 0, 0},           {"abc", "", 3, 3, 3},
        {"abcabc", "abc", 2, 4, 4},  {"abc", "", 4, 0, 0},
        {"abc", "c", 3, 3, 3},       {"abc", "c", 99, 0, 0},
        {"Abc", "a", 1, 0, 1},       {"url=url=\"", "URL=\"", 1, 0, 5},
        {"url=", "url=\"", 1, 0, 0}, {"u", "url=\"", 1, 0, 0},
        {"=@", "=`", 1, 0, 0},       {"Url=\"uRl=\"", "url=\"", 2, 0, 6}};
    for (const auto& [text, mark, start, exact, anyCase] : rows) {
        SCOPED_TRACE(testing::Message() << text << " / " << mark << " / " << start);
        EXPECT_EQ(text::find(text, mark, start), exact);
        EXPECT_EQ(text::findIgnoringCase(text, mark, start), anyCase);
    }
    EXPECT_EQ(faultOf([] { text::find("abc", "a", 0); }), Fault::InvalidCall);
    EXPECT_EQ(faultOf([] { text::findIgnoringCase("abc", "a", 0); }), Fault::InvalidCall);
}

// text::find changes to another search algorithm after 512 bytes.
TEST(TextTest, FindsAsTheStandardLibraryDoesAtAnyDistance) {
    const std::string needle = "abab";
    for (std::size_t at = 500; at < 530; ++at) {
        std::string text(at, 'a');
        text += needle + std::string(100, 'b');
        for (const std::size_t from : {std::size_t{0}, std::size_t{7}, at - 1}) {
            const auto place = static_cast<text::Position>(text.find(needle, from) + 1);
            const auto start = static_cast<text::Position>(from + 1);
            ASSERT_EQ(text::find(text, needle, start), place) << at << ' ' << from;
            ASSERT_EQ(text::findIgnoringCase(text, "aBAb", start), place) << at << ' ' << from;
        }
        ASSERT_EQ(text::splitUpperBound(text + text, needle), 2) << at;
        ASSERT_EQ(text::replaceAll(text, needle, ""), std::string(at, 'a') + std::string(100, 'b'));
    }
}

TEST(TextTest, SlicesAreClippedAndRefuseBadBounds) {
    EXPECT_EQ(text::slice("abcdef", 2, 3), "bcd");
    EXPECT_EQ(text::slice("abcdef", 5, 99), "ef");
    EXPECT_EQ(text::slice("abcdef", 8, 1), "");
    EXPECT_EQ(faultOf([] { text::slice("abc", 0, 1); }), Fault::InvalidCall);
    EXPECT_EQ(faultOf([] { text::slice("abc", 1, -1); }), Fault::InvalidCall);
}

TEST(TextTest, ReplacesAndCounts) {
    EXPECT_EQ(text::replaceAll("a..b...c", "..", "."), "a.b..c");
    EXPECT_EQ(text::without("/a//b \xFF/", "/ "), "ab\xFF");
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
