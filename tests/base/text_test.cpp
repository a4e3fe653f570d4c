#include "base/text.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

struct Row {
    std::string_view text, mark;
    text::Position start, expected;
};

Fault faultOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const RuntimeFailure& failure) {
        return failure.fault();
    }
    ADD_FAILURE() << "nothing was thrown";
    return Fault::Platform;
}

TEST(TextTest, FindsFromAPlace) {
    const Row rows[] = {
        {"", "", 1, 0},     {"abc", "", 2, 2},   {"abcabc", "abc", 2, 4}, {"abc", "", 4, 0},
        {"abc", "c", 3, 3}, {"abc", "c", 99, 0}, {"Abc", "a", 1, 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(text::find(row.text, row.mark, row.start), row.expected)
            << row.text << " / " << row.mark << " / " << row.start;
    EXPECT_EQ(faultOf([] { text::find("abc", "a", 0); }), Fault::InvalidCall);
    EXPECT_EQ(faultOf([] { text::findIgnoringCase("abc", "a", 0); }), Fault::InvalidCall);
}

TEST(TextTest, FindsIgnoringCase) {
    const Row rows[] = {
        {"url=url=\"", "URL=\"", 1, 5},
        {"url=", "url=\"", 1, 0},
        {"[{", "{", 1, 2},
        {"@", "`", 1, 0},
        {"uRl=\"uRl=\"", "url=\"", 2, 6},
        {"abc", "", 3, 3},
    };
    for (const Row& row : rows)
        EXPECT_EQ(text::findIgnoringCase(row.text, row.mark, row.start), row.expected)
            << row.text << " / " << row.mark << " / " << row.start;
}

TEST(TextTest, SlicesAreClippedAndRefuseBadBounds) {
    EXPECT_EQ(text::slice("abcdef", 2, 3), "bcd");
    EXPECT_EQ(text::slice("abcdef", 5, 99), "ef");
    EXPECT_EQ(text::slice("abcdef", 7, 1), "");
    EXPECT_EQ(faultOf([] { text::slice("abc", 0, 1); }), Fault::InvalidCall);
    EXPECT_EQ(faultOf([] { text::slice("abc", 1, -1); }), Fault::InvalidCall);
}

TEST(TextTest, ReplacesAndCounts) {
    EXPECT_EQ(text::replaceAll("a..b...c", "..", "."), "a.b..c");
    EXPECT_EQ(text::replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(text::splitUpperBound("aaaa", "aa"), 2);
    EXPECT_EQ(text::splitUpperBound("none", ".flv"), 0);
    EXPECT_EQ(text::splitUpperBound("", ".flv"), -1);
}

// Few letters in many orders: the search changes the byte that it looks for all the time.
TEST(TextTest, SearchAgreesWithAPlainLoop) {
    unsigned seed = 1;
    const auto letters = [&](std::size_t size, std::string_view alphabet) {
        std::string text;
        while (text.size() < size) {
            seed = seed * 1664525U + 1013904223U;
            text += alphabet[(seed >> 16) % alphabet.size()];
        }
        return text;
    };
    for (int round = 0; round < 3000; ++round) {
        const std::string text = letters(static_cast<std::size_t>(round % 90), "aB=");
        const std::string mark = letters(1 + static_cast<std::size_t>(round % 7), "aB=b");
        const auto at = text.find(mark, 1);
        const text::Position expected = at == text.npos ? 0 : static_cast<text::Position>(at) + 1;
        EXPECT_EQ(text::find(text, mark, 2), expected) << text << " / " << mark;

        const auto lower = [](std::string mixed) {
            for (char& c : mixed)
                if (c == 'B') c = 'b';
            return mixed;
        };
        EXPECT_EQ(text::findIgnoringCase(text, mark), text::find(lower(text), lower(mark)))
            << text << " / " << mark;
    }
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
