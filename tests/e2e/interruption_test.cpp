// Download again, Close and the end of the program in the middle of a run.
#include <gtest/gtest.h>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"

namespace velvox::e2e {
namespace {

// Far from the minute that a page is given, and still enough on a busy machine.
constexpr Milliseconds atOnce{20'000};

const std::string keyDown = "0x100";
const std::string enterKey = "13";

void pressEnterInTheBox(const Program& program) {
    driver().ask({"post", program.edit(), keyDown, enterKey, "0"});
}

// Neither while a page is fetched nor in the yields of a comic book.
TEST(InterruptionTest, ASecondPressOfDownloadDoesNothing) {
    Gate gate;
    const Proxy proxy([&](const Exchange& to) {
        gate.wait();
        to.forward();
    });
    const Program program(Network::proxy(proxy.port()));
    program.start("http://comic.vuilen.com/view_book_detail.php?bookid=42&chapterid=354");
    ASSERT_TRUE(proxy.asked(1));
    EXPECT_TRUE(program.addressLocked());
    EXPECT_FALSE(driver().enabled(program.control(ControlId::isButton1)));
    pressEnterInTheBox(program);
    gate.open();
    std::string html;
    for (int page = 1; page <= 8; ++page) {
        const std::string number = std::to_string(page);
        html +=
            "<font face='tahoma' size='2'><a href='http://comic.vuilen.com/books/42/354/"
            "meo03_00" +
            number + ".jpg'>Download Image " + number + "<a></font><br>";
    }
    program.expectPane(html);
    EXPECT_EQ(proxy.addresses().size(), 2U);
    program.closeArea();
}

// While a page is awaited the program ends at once, by whatever it is told to.
TEST(InterruptionTest, TheProgramEndsAtOnceDuringASilentFetch) {
    const Proxy proxy([](const Exchange& to) { to.staySilent(); });
    const struct {
        const char* name;
        std::function<void(const Program&)> act;
    } ways[] = {
        {"quit button", [](const Program& p) { p.click(ControlId::isButton2); }},
        {"Alt+F4", [](const Program&) { Hands().key("alt+F4").act(); }},
        {"WM_CLOSE",
         [](const Program& p) {
             driver().ask({"close", p.window()});
         }},
        {"taskbar menu",
         [](const Program& p) {
             driver().ask({"post", p.window(), "0x112", "0xF060", "0"});
         }},
    };
    std::size_t asked = 0;
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        Program program(Network::proxy(proxy.port()));
        program.start("http://www.youtube.com/watch?v=abc");
        ASSERT_TRUE(proxy.asked(++asked));
        way.act(program);
        EXPECT_EQ(program.process().exitWithin(atOnce), 0);
    }
}

TEST(InterruptionTest, TheProgramEndsInTheMiddleOfALongComicBook) {
    std::string book;
    for (int page = 0; page < 32767; ++page) book += "<page> p.jpg </page>\n";
    const Proxy proxy([&](const Exchange& to) {
        if (to.asksFor("config.xml"))
            to.reply(book);
        else
            to.reply("<iframe FRAMEBORDER='0' src='http://comic.vuilen.com/b/index.php'></iframe>");
    });
    Program program(Network::proxy(proxy.port()));
    program.start("http://comic.vuilen.com/view_book_detail.php?bookid=1");
    ASSERT_TRUE(proxy.asked(2));
    driver().ask({"close", program.window()});
    EXPECT_EQ(program.process().exitWithin(atOnce), 0);
}

// Close hides itself by the key that presses it; the character of that key is still in the queue.
TEST(InterruptionTest, AKeyThatHidesItsOwnControlLeavesTheWindowUsable) {
    const Program program;
    for (const char* key : {"Return", "space"}) {
        SCOPED_TRACE(key);
        program.start("http://www.veoh.com/videos/v669398tRxFQc4d?");
        const std::string close = program.control(ControlId::isButton1);
        ASSERT_TRUE(eventually([&] { return driver().enabled(close); }));
        Hands().key("Tab").act();
        ASSERT_TRUE(eventually([&] {
            return driver().focus(program.window()) == driver().ask({"find", close});
        }));
        Hands().key(key).act();
        driver().waitGone(program.control(ControlId::outer));
        for (const char* character : {"0x102", "0x106"}) {
            driver().ask({"post", close, character, "120", "0"});
            ASSERT_NO_THROW(driver().ping(program.window()));
        }
    }
}

}  // namespace
}  // namespace velvox::e2e
