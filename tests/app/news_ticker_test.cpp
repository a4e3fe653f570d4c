#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "tests/app/form1_fixture.h"

namespace velvox::testing {
namespace {

const std::string request =
    "open get http://www.velvox.example/news.txt?rnd=11/21/2008 9:05:00 AM\nsend\n";

std::string markedNews(const std::string& text) {
    return "<!-News!->" + text + "<!-NewsEnd!->";
}

/// Runs the form's timers in virtual milliseconds.
class VirtualTime {
 public:
    explicit VirtualTime(Form1Fixture& fixture) : fixture_(fixture) {
        Form1& form = fixture.form;
        for (Timer* timer : {&form.Timer1, &form.Timer4, &form.Timer5, &form.Timer6, &form.Timer7})
            running_.push_back({timer, timer->Interval()});
        fixture.timerChanged = [this](const Timer& timer) {
            for (Running& r : running_)
                if (r.timer == &timer) r.due = now_ + timer.Interval();
        };
    }

    void runTo(unsigned time) {
        for (;;) {
            Running* next = nullptr;
            for (Running& r : running_)
                if (r.timer->Enabled() && r.due <= time && (!next || r.due < next->due)) next = &r;
            if (!next) break;
            now_ = next->due;
            next->due += next->timer->Interval();
            next->timer->Tick();
            const std::string effects = fixture_.log.take();
            if (effects.find("open get") != effects.npos) requests.push_back(now_);
        }
        now_ = time;
    }

    std::vector<unsigned> requests;  ///< when each was started

 private:
    struct Running {
        Timer* timer;
        unsigned due;
    };
    Form1Fixture& fixture_;
    std::vector<Running> running_;
    unsigned now_ = 0;
};

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

TEST_F(NewsTickerTest, RequestGoesOnAfterEachFailure) {
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
    EXPECT_EQ(run({"open", "send"}), start + "create\nabort\nopen fails\nsend fails\n" + end);
}

TEST_F(NewsTickerTest, OneRequestObjectServesTheForm) {
    tick(form.Timer6);
    EXPECT_EQ(tick(form.Timer6), "Timer6 False\nabort\n" + request + "Timer7 True\nTimer4 True\n");
}

TEST_F(NewsTickerTest, PollTakesTheNewsBetweenTheMarkers) {
    const std::string old = form.NewsText;
    const std::string blanks(145, ' ');
    const std::string unknown = "Label4=Unknown Error ! While Loading News...\n";
    const struct {
        std::string reply, newsText, newsPos, effects;
    } rows[] = {
        {markedNews("fresh"), blanks + "fresh", "1", ""},
        {"x" + markedNews("a") + markedNews("b"), blanks + "a", "1", ""},
        {markedNews(""), blanks, "1", ""},
        {markedNews(std::string("\0\r\n\xFF'<b>", 8)), blanks + std::string("\0\r\n\xFF'<b>", 8),
         "1", ""},
        {"", old, "7", unknown},
        {"news", old, "7", unknown},
        {"<!-News!->open end", old, "7", unknown},
        {"no start<!-NewsEnd!->", old, "7", unknown},
        {"<!-NEWS!->x<!-NEWSEND!->", old, "7", unknown},
        {"<!-NewsEnd!->x<!-News!->", old, "7", ""},
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
    for (const int state : {0, 1, 2, 3, 5}) {
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
    for (int i = 0; i < 41; ++i) tick(form.Timer5);
    tick(form.Timer4);
    EXPECT_EQ(form.NewsPos, "42");
    news.text = markedNews("other");
    tick(form.Timer4);
    EXPECT_EQ(form.NewsPos, "1");
}

TEST_F(NewsTickerTest, RefreshLetsTheNextRequestStart) {
    EXPECT_EQ(tick(form.Timer7), "Timer7 False\nTimer6 True\nTimer4 False\n");
}

TEST_F(NewsTickerTest, SilentServerIsAskedAgainElevenSecondsLater) {
    VirtualTime time(fixture);
    time.runTo(35'000);
    EXPECT_EQ(time.requests, (std::vector<unsigned>{1000, 12'000, 23'000, 34'000}));
}

TEST_F(NewsTickerTest, NextRequestStartsElevenSecondsAfterAReply) {
    VirtualTime time(fixture);
    time.runTo(1500);
    news.state = 4;
    news.text = markedNews("here");
    time.runTo(1501);
    EXPECT_EQ(form.NewsText, std::string(145, ' ') + "here");
    time.runTo(2000);
    news.state = 1;
    time.runTo(25'000);
    EXPECT_EQ(time.requests, (std::vector<unsigned>{1000, 12'501, 23'501}));
}

TEST_F(NewsTickerTest, UnreadableReplyShowsUntilTheNextScroll) {
    VirtualTime time(fixture);
    news.state = 4;
    time.runTo(1001);
    EXPECT_EQ(form.Label4.Caption(), "Unknown Error ! While Loading News...");
    time.runTo(1100);
    EXPECT_EQ(form.Label4.Caption(), form.NewsText.substr(9, 150));
}

// The first tick has no place yet: it shows nothing and sets the place to 1.
TEST_F(NewsTickerTest, ScrollsFromTheFirstCharacterToTheLastAndAround) {
    ASSERT_EQ(form.NewsText.size(), 149U);
    EXPECT_EQ(form.NewsPos, "");
    EXPECT_EQ(tick(form.Timer5), "yield\n");
    for (int round = 0; round < 2; ++round) {
        for (std::size_t at = 0; at < 149; ++at) {
            EXPECT_EQ(form.NewsPos, std::to_string(at + 1));
            EXPECT_EQ(tick(form.Timer5), "Label4=" + form.NewsText.substr(at) + "\nyield\n");
        }
    }
    EXPECT_EQ(form.NewsPos, "1");
    form.NewsText = std::string(200, 'x');
    EXPECT_EQ(tick(form.Timer5), "Label4=" + std::string(150, 'x') + "\nyield\n");
}

// Half a character would show as another one, and one that takes three ticks would jerk.
TEST_F(NewsTickerTest, ScrollsByWholeCharactersOfAnyLength) {
    const std::string e = "\xE1\xBA\xBF";
    const std::string film = "\xF0\x9F\x8E\xAC";
    form.NewsText = e + "a\xC3\xA9" + film + "\xFF";
    form.NewsPos = "1";
    for (const std::string& shown :
         {e + "a\xC3\xA9" + film + "\xFF", "a\xC3\xA9" + film + "\xFF", "\xC3\xA9" + film + "\xFF",
          film + "\xFF", std::string("\xFF")})
        EXPECT_EQ(tick(form.Timer5), "Label4=" + shown + "\nyield\n");
    EXPECT_EQ(form.NewsPos, "1");

    std::string many;
    for (int i = 0; i < 150; ++i) many += e;
    form.NewsText = many + many;
    EXPECT_EQ(tick(form.Timer5), "Label4=" + many + "\nyield\n");
}

TEST_F(NewsTickerTest, ShorterNewsAndOddPlacesStartAgain) {
    form.NewsText = "abc";
    for (const char* place : {"99", "x", "-7", "0", "99999999999"}) {
        form.NewsPos = place;
        tick(form.Timer5);
        // A place before the text is only counted up, like any other number.
        const bool before = place == std::string("-7") || place == std::string("0");
        EXPECT_EQ(form.NewsPos, before ? std::to_string(std::stoi(place) + 1) : "1") << place;
    }
    form.NewsPos = "3";
    EXPECT_EQ(tick(form.Timer5), "Label4=c\nyield\n");
}

TEST_F(NewsTickerTest, TickCostsTheSameWhateverTheLengthOfTheNews) {
    const auto timeOf = [&](std::size_t size) {
        form.NewsText = std::string(size, 'n');
        form.NewsPos = "1";
        fixture.log.recording = false;
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
