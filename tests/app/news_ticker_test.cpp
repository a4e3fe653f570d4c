#include <gtest/gtest.h>

#include <chrono>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {
namespace {

const std::string request =
    "open get http://www.velvox.example/news.txt?rnd=11/21/2008 9:05:00 AM\nsend\n";

std::string markedNews(const std::string& text) {
    return "<!-News!->" + text + "<!-NewsEnd!->";
}

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
    const auto run = [](std::vector<std::string> failing) {
        Form1Fixture fresh;
        fresh.desktop.news.failing = std::move(failing);
        fresh.form.Timer6.Tick();
        return fresh.log.take();
    };
    const std::string start = "Timer6 False\n";
    const std::string end = "Timer7 True\nTimer4 True\n";
    EXPECT_EQ(run({}), start + "create\nabort\n" + request + end);
    EXPECT_EQ(run({"create"}), start + "create fails\ncreate fails\ncreate fails\n" + end);
    EXPECT_EQ(run({"abort"}), start + "create\nabort fails\n" + request + end);
    EXPECT_EQ(run({"open"}), start + "create\nabort\nopen fails\nsend\n" + end);
    EXPECT_EQ(run({"send"}), start + "create\nabort\n" + request.substr(0, request.find("send")) +
                                 "send fails\n" + end);

    tick(form.Timer6);
    EXPECT_EQ(tick(form.Timer6), start + "abort\n" + request + end) << "one object serves the form";
}

TEST_F(NewsTickerTest, PollTakesTheNewsBetweenTheMarkers) {
    const std::string old = form.NewsText;
    const std::string blanks(145, ' ');
    const std::string unknown = "Label4=Unknown Error ! While Loading News...\n";
    const struct {
        std::string reply, newsText, newsPos, effects;
    } rows[] = {
        {"x" + markedNews("fresh") + markedNews("b"), blanks + "fresh", "1", ""},
        {markedNews(""), blanks, "1", ""},
        {markedNews(std::string("\0\r\n\xFF'<b>", 8)), blanks + std::string("\0\r\n\xFF'<b>", 8),
         "1", ""},
        {"news", old, "7", unknown},
        {"<!-News!->open end", old, "7", unknown},
        {"<!-NEWS!->x<!-NEWSEND!->", old, "7", unknown},
        {"<!-NewsEnd!->" + markedNews("x"), old, "7", ""},
    };
    for (const auto& row : rows) {
        form.NewsText = old;
        form.NewsPos = "7";
        form.Label4.Caption("");
        news.state = 4;
        news.text = row.reply;
        tick(form.Timer6);
        EXPECT_EQ(tick(form.Timer4),
                  "Timer4 False\nTimer7 False\n" + row.effects + "Timer4 False\nTimer7 True\n")
            << row.reply;
        EXPECT_EQ(form.NewsText, row.newsText) << row.reply;
        EXPECT_EQ(form.NewsPos, row.newsPos) << row.reply;
    }
}

TEST_F(NewsTickerTest, PollWaitsAndSurvivesFailures) {
    tick(form.Timer6);
    for (const int state : {0, 3, 5}) {
        news.state = state;
        EXPECT_EQ(tick(form.Timer4), "Timer4 False\nTimer4 True\n") << state;
    }
    news.state = 4;
    news.failing = {"readyState"};
    EXPECT_EQ(tick(form.Timer4), "Timer4 False\nreadyState fails\nTimer4 True\n");
    news.failing = {"responseText"};
    EXPECT_EQ(tick(form.Timer4),
              "Timer4 False\nTimer7 False\nresponseText fails\n"
              "Label4=Unknown Error ! While Loading News...\nTimer4 False\nTimer7 True\n");
}

TEST_F(NewsTickerTest, SameNewsKeepTheirPlace) {
    news.state = 4;
    news.text = markedNews("same");
    tick(form.Timer6);
    tick(form.Timer4);
    form.NewsPos = "42";
    tick(form.Timer4);
    EXPECT_EQ(form.NewsPos, "42");
}

TEST_F(NewsTickerTest, RefreshLetsTheNextRequestStartElevenSecondsAfterTheLast) {
    EXPECT_EQ(tick(form.Timer7), "Timer7 False\nTimer6 True\nTimer4 False\n");
    EXPECT_EQ(form.Timer7.Interval() + form.Timer6.Interval(), 11'000U);
}

// The first tick has no place yet: it shows nothing and sets the place to 1.
TEST_F(NewsTickerTest, ScrollsFromTheFirstCharacterToTheLastAndAround) {
    form.NewsText = std::string(149, 'a') + "bc";
    EXPECT_EQ(form.NewsPos, "");
    EXPECT_EQ(tick(form.Timer5), "yield\n");
    for (std::size_t at = 0; at < 2 * 151; ++at) {
        EXPECT_EQ(form.NewsPos, std::to_string(at % 151 + 1));
        EXPECT_EQ(tick(form.Timer5), "Label4=" + form.NewsText.substr(at % 151, 150) + "\nyield\n");
    }
}

// Half a character would show as another one, and one that takes three ticks would jerk.
TEST_F(NewsTickerTest, ScrollsByWholeCharactersOfAnyLength) {
    const std::string e = "\xE1\xBA\xBF";
    const std::string rest = "\xF0\x9F\x8E\xAC\xFF";
    form.NewsText = e + "a\xC3\xA9" + rest;
    form.NewsPos = "1";
    for (const std::string& shown :
         {e + "a\xC3\xA9" + rest, "a\xC3\xA9" + rest, "\xC3\xA9" + rest, rest, std::string("\xFF")})
        EXPECT_EQ(tick(form.Timer5), "Label4=" + shown + "\nyield\n");
    EXPECT_EQ(form.NewsPos, "1");

    std::string many;
    for (int i = 0; i < 150; ++i) many += e;
    form.NewsText = many + many;
    EXPECT_EQ(tick(form.Timer5), "Label4=" + many + "\nyield\n");
}

TEST_F(NewsTickerTest, ShorterNewsAndOddPlacesStartAgain) {
    form.NewsText = "abc";
    // A place before the text is only counted up, like any other number.
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
    const auto timeOf = [&](std::size_t size) {
        form.NewsText = std::string(size, 'n');
        form.NewsPos = "1";
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < 2000; ++i) form.Timer5.Tick();
        return std::chrono::steady_clock::now() - start;
    };
    const auto small = timeOf(2000);
    // Copying the text at each tick would take seconds.
    EXPECT_LT(timeOf(5'000'000), 20 * small + std::chrono::milliseconds(200));
}

}  // namespace
}  // namespace velvox::testing
