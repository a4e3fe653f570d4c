#include <gtest/gtest.h>

#include <ctime>

#include "tests/app/form1/form1_fixture.h"

namespace velvox::testing {
namespace {

const std::string open = "open get http://www.velvox.example/news.txt?rnd=11/21/2008 9:05:00 AM\n";

// Ticks and replies in any order are left to the fuzz target `ticker`.
class NewsTickerTest : public ::testing::Test {
 protected:
    NewsTickerTest() { form.Form_Load(); }

    std::string tick(Timer& timer) {
        fixture.log.take();
        timer.Tick();
        return fixture.log.take();
    }

    Form1Fixture fixture;
    Form1& form = fixture.form;
    NewsScript& news = fixture.desktop.news;
};

TEST_F(NewsTickerTest, RequestGoesOnAfterEachFailureWithOneObject) {
    const std::pair<const char*, std::string> rows[] = {
        {"create", "create fails\ncreate fails\ncreate fails\n"},
        {"abort", "create\nabort fails\n" + open + "send\n"},
        {"open", "abort\nopen fails\nsend\n"},
        {"send", "abort\n" + open + "send fails\n"},
        {"nothing", "abort\n" + open + "send\n"},
    };
    for (const auto& [failing, effects] : rows) {
        news.failing = {failing};
        EXPECT_EQ(tick(form.Timer6), "Timer6 False\n" + effects + "Timer7 True\nTimer4 True\n");
    }
    EXPECT_EQ(form.Timer7.Interval() + form.Timer6.Interval(), 11'000U) << "until the next one";
}

// NewsPos is empty at the first tick, which shows nothing and sets NewsPos to 1.
TEST_F(NewsTickerTest, ScrollsFromTheFirstCharacterToTheLastAndAround) {
    form.NewsText = std::string(149, 'a') + "bc";
    EXPECT_EQ(form.NewsPos, "");
    EXPECT_EQ(tick(form.Timer5), "yield\n");
    for (std::size_t at = 0; at < 2 * 151; ++at) {
        EXPECT_EQ(form.NewsPos, std::to_string(at % 151 + 1));
        EXPECT_EQ(tick(form.Timer5), "Label4=" + form.NewsText.substr(at % 151, 150) + "\nyield\n");
    }
}

// If a character were cut in two, its bytes would be shown as different characters, and a character
// of three bytes would take three ticks.
TEST_F(NewsTickerTest, ScrollsByWholeCharactersOfAnyLength) {
    const std::string e = "\xE1\xBA\xBF";
    const std::string rest = "\xF0\x9F\x8E\xAC\xFF";
    form.NewsText = e + "a" + rest;
    form.NewsPos = "1";
    for (const std::string& shown : {e + "a" + rest, "a" + rest, rest, std::string("\xFF")})
        EXPECT_EQ(tick(form.Timer5), "Label4=" + shown + "\nyield\n");
    EXPECT_EQ(form.NewsPos, "1");

    const std::string many = text::replaceAll(std::string(150, 'x'), "x", e);
    form.NewsText = many + many;
    EXPECT_EQ(tick(form.Timer5), "Label4=" + many + "\nyield\n");
}

TEST_F(NewsTickerTest, ShorterNewsAndOddPlacesStartAgain) {
    form.NewsText = "abc";
    // A position below 1 starts nothing again: like a valid one, it is only incremented.
    const std::pair<const char*, const char*> rows[] = {
        {"99", "1"}, {"x", "1"}, {"-7", "-6"}, {"0", "1"}, {"99999999999", "1"}, {"3", "1"}};
    for (const auto& [place, next] : rows) {
        form.NewsPos = place;
        tick(form.Timer5);
        EXPECT_EQ(form.NewsPos, next) << place;
    }
}

TEST_F(NewsTickerTest, TickCostsTheSameWhateverTheLengthOfTheNews) {
    fixture.log.recording = false;
    form.NewsText = std::string(20'000'000, 'n');
    form.NewsPos = "1";
    const std::clock_t start = std::clock();
    for (int i = 0; i < 2000; ++i) form.Timer5.Tick();
    // Copying the text at each tick would take several times as long.
    EXPECT_LT(std::clock() - start, 3 * CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace velvox::testing
