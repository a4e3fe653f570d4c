// The news ticker: Timer6 starts a request, Timer4 polls it, and Timer5 scrolls the news. Timer7
// waits until the next request is due, or gives up a request that the server does not answer.
#include "app/form1/form1.h"
#include "app/form1/home_page.h"
#include "base/join.h"
#include "base/text.h"
#include "base/utf16.h"

namespace velvox {
namespace {

constexpr std::string_view newsStart = "<!-News!->";
constexpr std::string_view newsEnd = "<!-NewsEnd!->";
constexpr std::size_t blanksBeforeNews = 145;
constexpr std::size_t shownCharacters = 150;
constexpr int complete = 4;

/// Position of the next character. The ticker moves by whole characters, each of which may have
/// several bytes. Outside the news the result is the next position.
text::Position nextCharacterPosition(std::string_view news, text::Position place) {
    if (place < 1 || place > text::length(news)) return place + 1;
    return place +
           text::length(firstCharacters(news.substr(static_cast<std::size_t>(place - 1)), 1));
}

}  // namespace

XmlHttpRequest& Form1::newsRequest() {
    if (!newsRequest_) newsRequest_ = desktop_.createXmlHttpRequest();
    return *newsRequest_;
}

void Form1::Timer6_Timer() {
    Timer6.Enabled(false);
    ignoringErrors([&] { newsRequest().abort(); });
    // The date makes each address different, so that no reply comes from a cache.
    ignoringErrors([&] {
        newsRequest().open("get", join({homePage, "news.txt?rnd=", desktop_.dateTimeText()}));
    });
    ignoringErrors([&] { newsRequest().send(); });
    Timer7.Enabled(true);
    Timer4.Enabled(true);
}

// A failed request gives an empty text, which contains no news, like a reply without the markers
// that enclose the news.
void Form1::Timer4_Timer() {
    Timer4.Enabled(false);
    int state = 0;
    ignoringErrors([&] { state = newsRequest().readyState(); });
    if (state != complete) {
        Timer4.Enabled(true);
        return;
    }
    Timer7.Enabled(false);
    std::string reply;
    ignoringErrors([&] { reply = newsRequest().responseText(); });
    const auto p = text::find(reply, newsStart);
    const auto q = text::find(reply, newsEnd);
    if (p == 0 || q == 0) {
        Label4.Caption("Unknown Error ! While Loading News...");
    } else {
        ignoringErrors([&] {
            // If the markers are in the wrong order, the length is negative: slice throws and the
            // previous news stays.
            const auto news = text::slice(reply, p + 10, q - p - 10);
            std::string candidate = join({std::string(blanksBeforeNews, ' '), news});
            if (candidate != NewsText) {
                NewsText = std::move(candidate);
                NewsPos = "1";
            }
        });
    }
    Timer4.Enabled(false);
    Timer7.Enabled(true);
}

void Form1::Timer7_Timer() {
    Timer7.Enabled(false);
    Timer6.Enabled(true);
    Timer4.Enabled(false);
}

// Before the first tick NewsPos is empty: the first two statements throw and are ignored. A
// position that is not a number counts as past the end.
void Form1::Timer5_Timer() {
    ignoringErrors([&] {
        const auto rest = text::slice(NewsText, text::toNumber(NewsPos), text::length(NewsText));
        Label4.Caption(firstCharacters(rest, shownCharacters));
    });
    ignoringErrors([&] {
        NewsPos = std::to_string(nextCharacterPosition(NewsText, text::toNumber(NewsPos)));
    });
    bool pastEnd = true;
    ignoringErrors([&] { pastEnd = text::length(NewsText) < text::toNumber(NewsPos); });
    if (pastEnd) NewsPos = "1";
    desktop_.yield();
}

}  // namespace velvox
