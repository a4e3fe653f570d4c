// Servers that answer late, partly, hugely or with rubbish. Each ends in the site's own line, the
// window answers meanwhile, and the next run is a good one.
#include <gtest/gtest.h>

#include <optional>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"
#include "tools/drive/client/places.h"

namespace velvox::e2e {
namespace {

constexpr const char* address = "http://www.veoh.com/videos/v1?";
constexpr const char* failed = "<font face='tahoma' size='2' color='red'>Download Failed !</font>";
constexpr const char* header = "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n";

std::string marked(const std::string& link) {
    return "fullPreviewHashPath=\"" + link + "\" \r\n";
}

std::string links(const std::string& link) {
    return "<font face='tahoma' size='2'><a href='" + link + "'>Download FLV</a></font>";
}

class BadReplyTest : public testing::Test {
 protected:
    // With three seconds for a page, as most tests wait for their end.
    void SetUp() override { run(places::impatientVelvox()); }
    void run(const std::string& file) { program_.emplace(Network::proxy(proxy_.port()), file); }

    // Milliseconds from the request to the pane's line.
    long long expect(const Proxy::Handler& handler, const std::string& html) {
        const std::size_t before = proxy_.addresses().size();
        proxy_.answerWith(handler);
        program_->start(address);
        EXPECT_TRUE(proxy_.asked(before + 1));
        const auto start = Clock::now();
        // The window is not dead while it waits.
        EXPECT_NO_THROW(driver().ask({"ping", program_->window(), "1000"}));
        program_->expectPane(html);
        const auto spent = std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
        EXPECT_FALSE(program_->addressLocked());
        return spent.count();
    }

    void expectGoodRun() {
        proxy_.answerWith([](const Exchange& to) { to.forward(); });
        program_->expectGoodRun();
    }

    Proxy proxy_{[](const Exchange& to) { to.staySilent(); }};
    std::optional<Program> program_;
};

TEST_F(BadReplyTest, SilenceAndDripsEndAtTheLimit) {
    const auto around = [](long long spent) { return spent > 2500 && spent < 6000; };
    EXPECT_PRED1(around, expect([](const Exchange& to) { to.staySilent(); }, failed));
    EXPECT_PRED1(around, expect(
                             [](const Exchange& to) {
                                 to.drip("HTTP/1.1 200 OK\r\nX-Header: 1\r\n", Milliseconds(1000));
                             },
                             failed));
    EXPECT_PRED1(around, expect(
                             [](const Exchange& to) {
                                 to.write(std::string(header) + "\r\n");
                                 to.drip(marked("http://a/b.flv"), Milliseconds(1000));
                             },
                             failed));
    expectGoodRun();
}

TEST_F(BadReplyTest, CutAndEmptyAnswersFail) {
    for (const std::string& part : {std::string(), std::string("HTTP/1.1 200"), std::string(header),
                                    header + ("\r\n" + marked("http://a/b.flv"))}) {
        SCOPED_TRACE(part);
        EXPECT_LT(expect([part](const Exchange& to) { to.write(part); }, failed), 2500);
    }
    expect([](const Exchange& to) { to.reply(""); }, failed);
    expect([](const Exchange& to) { to.write("no HTTP at all\r\n\r\n"); }, failed);
    expectGoodRun();
}

TEST_F(BadReplyTest, HugeAndBinaryAnswersAreSearched) {
    run(places::velvox());
    std::string binary;
    for (int i = 0; i < 256; ++i) binary += static_cast<char>(i);
    expect([&](const Exchange& to) { to.reply(binary + marked("http://a/b.flv") + binary); },
           links("http://a/b.flv"));
    std::string huge;
    while (huge.size() < (50U << 20)) huge += binary;
    expect([&](const Exchange& to) { to.reply(huge); }, failed);
    expect([&](const Exchange& to) { to.reply(huge + marked("http://a/b.flv")); },
           links("http://a/b.flv"));
    expectGoodRun();
}

}  // namespace
}  // namespace velvox::e2e
