// Velvox on a server of hostile replies: each run must end in the expected line, at little cost.
#include <gtest/gtest.h>

#include <iostream>
#include <optional>

#include "tests/e2e/hostile_replies.h"
#include "tests/e2e/program.h"
#include "tests/e2e/resource_usage.h"

namespace velvox::e2e {
namespace {

constexpr Milliseconds maxAnswer{1000};
constexpr long maxPrivateKb = 200 * 1024;
constexpr long maxDiskBytes = 1 << 20;

/// An address to paste, and the possible texts of the pane after its run.
struct Target {
    const char* address;
    std::string link, failure, waiting;
};

const Target pageTarget{"http://www.veoh.com/videos/v1?",
                        std::string("<font face='tahoma' size='2'><a href='") + hostileLink +
                            "'>Download FLV</a></font>",
                        "<font face='tahoma' size='2' color='red'>Download Failed !</font>", ""};
const Target playerTarget{
    "http://www.metacafe.com/watch/1/x/",
    std::string("<a href='") + hostileLink + "'><font face='tahoma' size=2>Download</font></a>",
    "no failure", "<font face='tahoma' size='2'>Sending URL Request...</font>"};

// Size of the files in the folders that caches and downloads would use.
long bytesOnDisk() {
    return std::stol(outputOf(
        {"sh", "-c", "cd \"$WINEPREFIX/drive_c\" && du -bc users windows/temp | tail -1"}));
}

class HostileServerTest : public testing::Test {
 protected:
    void startProgram(bool isHasty) {
        program_.reset();
        program_.emplace(proxy_.port(), isHasty ? "velvox-short-timeout.exe" : "velvox.exe");
    }

    /// Runs the program on a reply. Prints the outcome and the cost.
    void expectOutcome(const HostileReply& reply) {
        SCOPED_TRACE(reply.name);
        std::cout << reply.name << std::flush;
        const Target& target = reply.has(player) ? playerTarget : pageTarget;
        // A navigation that never arrives is observed for two seconds.
        const Milliseconds limit(reply.outcome == Outcome::Waiting ? 2'000 : 75'000);
        const pid_t id = program_->process().id();
        forgetPeak(id);
        const long disk = bytesOnDisk();
        const std::size_t before = proxy_.addresses().size();
        proxy_.answerWith(reply.answer);
        program_->start(target.address);
        EXPECT_TRUE(proxy_.asked(before + 1));
        const auto start = Clock::now();
        Milliseconds answer{0}, spent{0};
        std::string pane;
        do {
            answer = std::max(answer, driver().ping(program_->window(), limit));
            pane = program_->pane();
            spent = since(start);
        } while (spent <= limit && pane != target.link && pane != target.failure);
        const long diskBytes = bytesOnDisk() - disk;
        const long peakKb = peakPrivateKb(id);
        std::cout << ": " << pane << " after " << spent.count() << " ms, answers within "
                  << answer.count() << " ms, " << peakKb / 1024 << " MB, disk " << diskBytes
                  << std::endl;
        EXPECT_TRUE(reply.outcome == Outcome::Waiting
                        ? pane == target.waiting
                        : (pane == target.link && reply.outcome != Outcome::Failure) ||
                              (pane == target.failure && reply.outcome != Outcome::Link));
        EXPECT_LE(answer, maxAnswer);
        EXPECT_LT(diskBytes, maxDiskBytes);
        if (reply.has(unbounded)) return;
        EXPECT_LT(peakKb, maxPrivateKb);
    }

    void expectGoodRun() {
        proxy_.answerWith(Proxy::forwarding);
        program_->expectGoodRun();
    }

 private:
    Proxy proxy_{Proxy::forwarding};
    std::optional<Program> program_;
};

TEST_F(HostileServerTest, QuickRepliesEndInTheirLineAndCostLittle) {
    for (const bool isHasty : {false, true}) {
        startProgram(isHasty);
        for (const HostileReply& reply : hostileReplies())
            if (reply.has(quick) && reply.has(hasty) == isHasty) expectOutcome(reply);
        expectGoodRun();
    }
}

// Takes more than six minutes, so ./test leaves it out.
TEST_F(HostileServerTest, AllRepliesEndInTheirLineAndCostLittle) {
    for (const HostileReply& reply : hostileReplies()) {
        startProgram(reply.has(hasty));
        expectOutcome(reply);
        expectGoodRun();
    }
}

}  // namespace
}  // namespace velvox::e2e
