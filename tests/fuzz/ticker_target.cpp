// The news ticker with ticks, replies and failures in any order. The first section has a letter for
// each event. The other sections are replies.
//
//     4 5 6 7   a tick of that timer, whether it is on or not (a tick may be queued already)
//     t         a tick of each timer that is on
//     a ... e   the request's ready state becomes 0 ... 4
//     r         the reply becomes that of the next section
//     A C O S R T   abort, create, open, send, readyState, responseText begin or cease to fail
#include <charconv>

#include "base/utf16.h"
#include "tests/app/form1/form1_fixture.h"
#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

constexpr std::string_view newsStart = "<!-News!->";
constexpr std::string_view newsEnd = "<!-NewsEnd!->";

class TickerRun {
 public:
    explicit TickerRun(std::vector<std::string> sections) : sections_(std::move(sections)) {
        fixture_.log.recording = false;
        form_.Form_Load();
    }

    void perform() {
        for (const char event : sections_[0]) perform(event);
    }

 private:
    void perform(char event) {
        switch (event) {
            case '4': poll(); break;
            case '5': scroll(); break;
            case '6': request(); break;
            case '7': refresh(); break;
            case 't': tickAll(); break;
            case 'r': news_.text = sections_[reply_ = (reply_ + 1) % sections_.size()]; break;
            case 'A': toggle("abort"); break;
            case 'C': toggle("create"); break;
            case 'O': toggle("open"); break;
            case 'S': toggle("send"); break;
            case 'R': toggle("readyState"); break;
            case 'T': toggle("responseText"); break;
            default:
                if (event >= 'a' && event <= 'e') news_.state = event - 'a';
                return;
        }
        require(form_.Timer5.Enabled(), "the strip stands still");
        require(form_.Timer4.Enabled() || form_.Timer6.Enabled() || form_.Timer7.Enabled(),
                "no timer is left to ask for news");
    }

    void tickAll() {
        if (form_.Timer6.Enabled()) request();
        if (form_.Timer4.Enabled()) poll();
        if (form_.Timer7.Enabled()) refresh();
        if (form_.Timer5.Enabled()) scroll();
    }

    void toggle(const std::string& operation) {
        if (std::erase(news_.failing, operation) == 0) news_.failing.push_back(operation);
    }
    bool fails(const char* operation) const {
        return std::ranges::find(news_.failing, operation) != news_.failing.end();
    }

    void request() {
        form_.Timer6.Tick();
        // A request object exists only after a create has succeeded.
        created_ = created_ || !fails("create");
        require(!form_.Timer6.Enabled() && form_.Timer4.Enabled() && form_.Timer7.Enabled(),
                "a request is not polled, or never given up");
    }

    void poll() {
        const std::string before = form_.NewsText;
        const std::string place = form_.NewsPos;
        const std::string caption = form_.Label4.Caption();
        const bool refreshing = form_.Timer7.Enabled();
        form_.Timer4.Tick();
        created_ = created_ || !fails("create");
        if (!created_ || fails("readyState") || news_.state != 4) {
            require(form_.Timer4.Enabled() && form_.Timer7.Enabled() == refreshing,
                    "the poll does not go on");
            require(form_.NewsText == before && form_.NewsPos == place &&
                        form_.Label4.Caption() == caption,
                    "an unfinished request has an effect");
            return;
        }
        require(!form_.Timer4.Enabled() && form_.Timer7.Enabled(), "the next request is not due");
        expectNews(before, place, fails("responseText") ? std::string() : news_.text);
    }

    void expectNews(const std::string& before, const std::string& place,
                    const std::string& reply) const {
        const auto start = reply.find(newsStart);
        const auto end = reply.find(newsEnd);
        std::string expected = before;
        if (start == reply.npos || end == reply.npos)
            require(form_.Label4.Caption() == "Unknown Error ! While Loading News...",
                    "a reply without news is not reported");
        else if (start + newsStart.size() <= end)
            expected = std::string(145, ' ') +
                       reply.substr(start + newsStart.size(), end - start - newsStart.size());
        require(form_.NewsText == expected, "the news are not those of the reply");
        require(form_.NewsPos == (expected == before ? place : "1"),
                "old news start again, or new ones do not");
    }

    void refresh() {
        form_.Timer7.Tick();
        require(form_.Timer6.Enabled() && !form_.Timer4.Enabled() && !form_.Timer7.Enabled(),
                "the refresh does not lead to a request");
    }

    void scroll() {
        const std::string before = form_.NewsPos;
        form_.Timer5.Tick();
        const std::string& now = form_.NewsPos;
        const std::string& caption = form_.Label4.Caption();
        std::size_t place = 0;
        const auto [end, error] = std::from_chars(now.data(), now.data() + now.size(), place);
        require(error == std::errc() && end == now.data() + now.size() && place >= 1 &&
                    place <= form_.NewsText.size(),
                "the next place is outside the news");
        if (before.empty()) return;
        require(form_.NewsText.compare(std::stoul(before) - 1, caption.size(), caption) == 0 &&
                    firstCharacters(caption, 150) == caption,
                "the strip shows something else");
        require(place == 1 || place == std::stoul(before) + firstCharacters(caption, 1).size(),
                "the strip jumps");
    }

    std::vector<std::string> sections_;
    testing::Form1Fixture fixture_;
    Form1& form_ = fixture_.form;
    testing::NewsScript& news_ = fixture_.desktop.news;
    std::size_t reply_ = 0;
    bool created_ = false;
};

}  // namespace

void ticker(std::string_view input) {
    TickerRun(sections(input)).perform();
}

}  // namespace velvox::fuzz
