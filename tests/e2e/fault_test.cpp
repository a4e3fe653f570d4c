// Each site with a server that cuts off, answers with an error page or never answers: its red line
// every time, and a good run afterwards.
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

std::string red(const std::string& text) {
    return "<font face='tahoma' size='2' color='red'>" + text + "</font>";
}

// Metacafe fetches nothing itself: its browser does not arrive, and the run waits with this line.
const std::string requesting = "<font face='tahoma' size='2'>Sending URL Request...</font>";

const struct Site {
    const char* name;
    std::string address;
    std::string failure;  ///< the pane when a page cannot be fetched
    bool locked = false;  ///< the address box after it
    struct {
        std::string address;
        std::string pane;
    } errorPage;
} sites[] = {
    {"YouTube",
     "http://www.youtube.com/watch?v=Yp5O8Koe_A4",
     red("Video Unavilable.."),
     false,
     {"http://www.youtube.com/watch?v=removed0000",
      red("Cannot Validate Request | The Video Might Be Removed From Server..")}},
    {"clip site",
     "http://www.clip.vn/watch/VjW,vn,Clip.html",
     red("Video Unavilable.."),
     false,
     {"http://www.clip.vn/watch/Br4,x.html", red("Video Unavilable..")}},
    {"Sevenload",
     "http://en.sevenload.com/videos/s931TZW/HiB-auf-dem-CSD",
     red("Video Unavilable..."),
     false,
     {"http://en.sevenload.com/videos/gone404/Nothing-here",
      red("Video/Photo Could Not Be Found | The File Mightbe Removed...")}},
    {"Veoh",
     "http://www.veoh.com/videos/v669398tRxFQc4d",
     red("Download Failed !"),
     false,
     {"http://www.veoh.com/videos/v000000gone0000", red("Download Failed !")}},
    {"Metacafe",
     "http://www.metacafe.com/watch/983094/dog_singing_hippo/",
     requesting,
     true,
     {"http://www.metacafe.com/watch/100404/gone/",
      "<font face='tahoma' size=2 color='red'>Video Removed From Server...</font>"}},
    {"comic site",
     "http://comic.vuilen.com/view_book_detail.php?bookid=42&chapterid=354",
     red("Download Failed !"),
     false,
     {"http://comic.vuilen.com/view_book_detail.php?bookid=1&chapterid=1",
      red("Download Failed !")}},
};

void expectFailure(const Program& program, const Site& site) {
    SCOPED_TRACE(site.name);
    program.start(site.address);
    program.expectPane(site.failure);
    EXPECT_EQ(program.addressLocked(), site.locked);
}

TEST(FaultTest, AnswersCutInTheMiddle) {
    Proxy proxy([](const Exchange& to) {
        to.write(
            "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 5000\r\n\r\n<html>");
    });
    const Program program(Network::proxy(proxy.port()));
    for (const Site& site : sites) expectFailure(program, site);
    proxy.answerWith([](const Exchange& to) { to.forward(); });
    program.expectGoodRun();
}

TEST(FaultTest, ErrorPages) {
    const Program program;
    for (const Site& site : sites) {
        SCOPED_TRACE(site.name);
        program.start(site.errorPage.address);
        program.expectPane(site.errorPage.pane);
        EXPECT_FALSE(program.addressLocked());
    }
    // A feed without any clip is no failure: nothing to show.
    program.start("http://www.clip.vn/watch/Xo0,x.html");
    program.expectPane("");
    program.expectGoodRun();
}

// The real minute, waited for once: all six at the same time.
TEST(PatienceTest, ServersThatNeverAnswerAreGivenAMinute) {
    Proxy proxy([](const Exchange& to) { to.staySilent(); });
    std::array<std::unique_ptr<Program>, std::size(sites)> programs;
    std::array<Clock::time_point, std::size(sites)> started;
    for (std::size_t i = 0; i < programs.size(); ++i) {
        programs[i] = std::make_unique<Program>(Network::proxy(proxy.port()));
        programs[i]->start(sites[i].address);
        ASSERT_TRUE(proxy.asked(i + 1));
        started[i] = Clock::now();
    }
    for (std::size_t i = 0; i < programs.size(); ++i) {
        SCOPED_TRACE(sites[i].name);
        programs[i]->expectPane(sites[i].failure, Milliseconds(75'000));
        const auto spent = Clock::now() - started[i];
        if (sites[i].failure != requesting) {
            EXPECT_GT(spent, std::chrono::seconds(58));
            EXPECT_LT(spent, std::chrono::seconds(70));
        }
        EXPECT_EQ(programs[i]->addressLocked(), sites[i].locked);
    }
    proxy.answerWith([](const Exchange& to) { to.forward(); });
    // The windows lie over each other, the last one on top.
    for (auto program = programs.rbegin(); program != programs.rend(); ++program) {
        (*program)->expectGoodRun();
        program->reset();
    }
}

}  // namespace
}  // namespace velvox::e2e
