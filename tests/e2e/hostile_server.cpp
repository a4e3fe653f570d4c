#include "tests/e2e/hostile_server.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/e2e/resource_usage.h"
#include "tools/drive/client/paths.h"

namespace velvox::e2e {
namespace {

constexpr Milliseconds maxAnswer{1000};
constexpr long maxPrivateKb = 200 * 1024;
constexpr std::intmax_t maxDiskBytes = 1 << 20;

struct TargetTraits {
    const char* address;
    std::string link, failure, waiting;
};

const TargetTraits& traitsOf(const HostileReply& reply) {
    static const TargetTraits page{
        "http://www.veoh.com/videos/v1?",
        std::string("<font face='tahoma' size='2'><a href='") + hostileLink +
            "'>Download FLV</a></font>",
        "<font face='tahoma' size='2' color='red'>Download Failed !</font>", ""};
    static const TargetTraits navigation{
        "http://www.metacafe.com/watch/1/x/",
        std::string("<a href='") + hostileLink + "'><font face='tahoma' size=2>Download</font></a>",
        "", "<font face='tahoma' size='2'>Sending URL Request...</font>"};
    return reply.has(player) ? navigation : page;
}

bool isExpected(Outcome outcome, const std::string& pane) {
    switch (outcome) {
        case Outcome::Link: return pane == "link";
        case Outcome::Failure: return pane == "failure";
        case Outcome::LinkOrFailure: return pane == "link" || pane == "failure";
        case Outcome::Waiting: return pane == "waiting";
    }
    return false;
}

Milliseconds since(Clock::time_point start) {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
}

// Size of the files in the folders that caches and downloads would use.
std::intmax_t bytesOnDisk() {
    const char* prefix = std::getenv("WINEPREFIX");
    if (!prefix) throw std::runtime_error("no Wine prefix: run within tools/with-session");
    std::intmax_t sum = 0;
    for (const char* folder : {"drive_c/users", "drive_c/windows/temp"})
        for (const auto& entry : std::filesystem::recursive_directory_iterator(
                 std::filesystem::path(prefix) / folder)) {
            std::error_code gone;
            const auto size = entry.is_regular_file(gone) ? entry.file_size(gone) : 0;
            if (!gone) sum += static_cast<std::intmax_t>(size);
        }
    return sum;
}

}  // namespace

PeakMemory::PeakMemory(pid_t program) {
    sampler_ = std::thread([this, program] {
        constexpr Milliseconds pause{10};
        for (; !stopped_; std::this_thread::sleep_for(pause))
            peak_ = std::max(peak_.load(), privateKb(program));
    });
}

PeakMemory::~PeakMemory() {
    stopped_ = true;
    sampler_.join();
}

std::ostream& operator<<(std::ostream& out, const Observation& seen) {
    return out << seen.pane << " after " << seen.time.count() << " ms, answers within "
               << seen.answered.count() << " ms, " << seen.peakKb / 1024 << " MB, disk "
               << seen.diskBytes;
}

void HostileServer::start(bool isHasty) {
    if (program_ && isHasty == hasty_) return;
    program_.reset();
    program_.emplace(Network::proxy(proxy_.port()),
                     isHasty ? paths::velvoxShortTimeout() : paths::velvox());
    hasty_ = isHasty;
}

Observation HostileServer::run(const HostileReply& reply, Milliseconds limit) {
    const TargetTraits& facts = traitsOf(reply);
    const PeakMemory memory(program_->process().id());
    const auto disk = bytesOnDisk();
    const std::size_t before = proxy_.addresses().size();
    proxy_.answerWith(reply.answer);
    program_->start(facts.address);
    EXPECT_TRUE(proxy_.asked(before + 1));
    Observation seen;
    const auto start = Clock::now();
    while (seen.pane.empty()) {
        const std::string answer =
            driver().ask({"ping", program_->window(), std::to_string(limit.count())});
        seen.answered = std::max(seen.answered, Milliseconds(std::stol(answer)));
        const std::string pane = program_->pane();
        seen.time = since(start);
        if (pane == facts.link) seen.pane = "link";
        if (pane == facts.failure && !pane.empty()) seen.pane = "failure";
        if (seen.time > limit) seen.pane = pane == facts.waiting ? "waiting" : pane;
    }
    seen.peakKb = memory.kilobytes();
    seen.diskBytes = bytesOnDisk() - disk;
    return seen;
}

void HostileServer::expectGoodRun() {
    if (!program_) return;
    proxy_.answerWith(Proxy::forwarding);
    program_->expectGoodRun();
}

Observation HostileServer::observe(const HostileReply& reply) {
    SCOPED_TRACE(reply.name);
    // A navigation that never arrives is observed for two seconds.
    const Milliseconds limit(reply.outcome == Outcome::Waiting ? 2'000 : 75'000);
    Observation seen;
    try {
        start(reply.has(hasty));
        seen = run(reply, limit);
        EXPECT_PRED2(isExpected, reply.outcome, seen.pane);
        EXPECT_LE(seen.answered, maxAnswer);
        if (!reply.has(unbounded)) {
            EXPECT_LT(seen.peakKb, maxPrivateKb);
        }
        EXPECT_LT(seen.diskBytes, maxDiskBytes);
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
        seen.pane = "broken";
        program_.reset();
    }
    return seen;
}

}  // namespace velvox::e2e
