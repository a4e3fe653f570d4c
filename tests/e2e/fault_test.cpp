// Servers that cut the connection, reply with an error page or never reply. The site's red line
// must appear, and the next run must succeed.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

std::string red(const std::string& text) {
    return "<font face='tahoma' size='2' color='red'>" + text + "</font>";
}

const std::string youtube = "http://www.youtube.com/watch?v=Yp5O8Koe_A4";
const std::string unavailable = red("Video Unavilable..");
const std::string failed = red("Download Failed !");

TEST(FaultTest, AnswersCutInTheMiddle) {
    Proxy proxy([](const Exchange& to) {
        to.write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 5000\r\n\r\n<html>");
    });
    const Program program(Network::proxy(proxy.port()));
    program.start(youtube);
    program.expectPane(unavailable);
    EXPECT_FALSE(program.addressLocked());
    proxy.answerWith([](const Exchange& to) { to.forward(); });
    program.expectGoodRun();
}

TEST(FaultTest, ErrorPagesOfEachSite) {
    const std::pair<const char*, std::string> rows[] = {
        {"http://www.youtube.com/watch?v=removed0000",
         red("Cannot Validate Request | The Video Might Be Removed From Server..")},
        {"http://www.clip.vn/watch/Br4,x.html", unavailable},
        {"http://en.sevenload.com/videos/gone404/Nothing-here",
         red("Video/Photo Could Not Be Found | The File Mightbe Removed...")},
        {"http://www.veoh.com/videos/v000000gone0000", failed},
        {"http://www.metacafe.com/watch/100404/gone/",
         "<font face='tahoma' size=2 color='red'>Video Removed From Server...</font>"},
        {"http://comic.vuilen.com/view_book_detail.php?bookid=1&chapterid=1", failed},
        // A feed without clips is no failure, but there is nothing to show.
        {"http://www.clip.vn/watch/Xo0,x.html", ""}};
    const Program program;
    for (const auto& [address, pane] : rows) {
        SCOPED_TRACE(address);
        program.start(address);
        program.expectPane(pane);
        EXPECT_FALSE(program.addressLocked());
    }
    program.expectGoodRun();
}

// The only test that waits for the real timeout of a minute. Two programs wait at the same time,
// one of them for its preview: Metacafe's catcher fetches no page, and its run ends with the line
// "Sending URL Request...".
TEST(PatienceTest, ServersThatNeverAnswerAreGivenAMinute) {
    Proxy proxy([](const Exchange& to) { to.staySilent(); });
    const Program browsing(Network::proxy(proxy.port()));
    browsing.start("http://www.metacafe.com/watch/983094/dog_singing_hippo/");
    ASSERT_TRUE(proxy.asked(1));
    {
        const Program fetching(Network::proxy(proxy.port()));
        fetching.start(youtube);
        ASSERT_TRUE(proxy.asked(2));
        const auto started = Clock::now();
        fetching.expectPane(unavailable, Milliseconds(75'000));
        const auto spent = Clock::now() - started;
        EXPECT_GT(spent, std::chrono::seconds(58));
        EXPECT_LT(spent, std::chrono::seconds(70));
        proxy.answerWith([](const Exchange& to) { to.forward(); });
        fetching.expectGoodRun();
    }
    browsing.expectPane("<font face='tahoma' size='2'>Sending URL Request...</font>");
    EXPECT_TRUE(browsing.addressLocked());
    browsing.expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
