// Metrics of the running program for docs/performance.md. Metrics with a bound are checked, which
// needs a quiet machine. tools/metrics runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <limits>

#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"
#include "tests/e2e/resource_usage.h"
#include "tests/metrics/metric.h"

namespace velvox::e2e {
namespace {

// Milliseconds from the start of the process until its window has been painted and answers a
// message.
Milliseconds startTime(const std::string& file, const std::string& windowClass) {
    const auto start = Clock::now();
    Process process({paths::wine(), paths::program(file)});
    driver().waitVisible(windowClass);
    driver().ping(windowClass);
    const Milliseconds spent = since(start);
    driver().ask({"close", windowClass});
    process.exitWithin(Driver::patience);
    return spent;
}

struct Times {
    std::vector<Milliseconds> all;

    /// In milliseconds.
    double median() {
        std::sort(all.begin(), all.end());
        return static_cast<double>(all[all.size() / 2].count());
    }
};

std::ostream& operator<<(std::ostream& out, Times times) {
    out << "median " << times.median() << " ms of";
    for (const Milliseconds time : times.all) out << ' ' << time.count();
    return out;
}

TEST(Metrics, Start) {
    constexpr int runs = 15;
    Times own;
    Times empty;
    for (int i = -1; i < runs; ++i) {
        const Milliseconds a = startTime("velvox.exe", "Form1");
        const Milliseconds b = startTime("empty-window.exe", "Empty");
        if (i < 0) continue;  // the first start reads the files from the disk
        own.all.push_back(a);
        empty.all.push_back(b);
    }
    std::cout << "Velvox: " << own << "\nempty window: " << empty << std::endl;
    expectAtMost("start, beside an empty window", own.median() / empty.median(), 1.6);
}

TEST(Metrics, MemoryAfterStart) {
    const Process empty({paths::wine(), paths::program("empty-window.exe")});
    driver().waitVisible("Empty");
    driver().ping("Empty");
    const long least = privateKb(empty.id());
    const Program program;
    const long own = privateKb(program.process().id());
    std::cout << "private memory: " << own << " kB, an empty window " << least << " kB\n";
    expectAtMost("private memory after start, beside an empty window",
                 static_cast<double>(own) / static_cast<double>(least), 2);
}

// Percent of a core that the idle program and Wine's server take.
TEST(Metrics, IdleWithNews) {
    constexpr Milliseconds settling{5000};
    constexpr Milliseconds measured{60'000};
    const Proxy proxy(Proxy::forwarding, Proxy::forwarding);
    const Program program(proxy.port());
    std::this_thread::sleep_for(settling);
    const auto spent = [&] {
        return std::pair(processorTime(program.process().id()), processorTime(wineServer()));
    };
    const auto before = spent();
    std::this_thread::sleep_for(measured);
    const auto after = spent();
    const auto percent = [&](Milliseconds time) {
        return 100.0 * static_cast<double>(time.count()) / static_cast<double>(measured.count());
    };
    const double own = percent(after.first - before.first);
    const double server = percent(after.second - before.second);
    std::cout << "Velvox " << own << " % of a core, Wine's server " << server << " %" << std::endl;
    expectAtMost("idle with the news scrolling, and Wine's server", own + server, 1, "%");
}

TEST(Metrics, GrowthOfRuns) {
    constexpr Milliseconds newsPeriod{15'000};
    const Proxy proxy(Proxy::forwarding);
    const Program program(proxy.port());
    std::size_t done = 0;
    const auto privateKbAfter = [&](std::size_t runs) {
        for (; done < runs; ++done)
            EXPECT_TRUE(
                program.runByMessages(exampleAddresses[done % std::size(exampleAddresses)]));
        // A request for news has threads of its own, of a megabyte each, for some seconds: take the
        // least of more than the time between two requests.
        long least = std::numeric_limits<long>::max();
        for (const auto start = Clock::now(); since(start) < newsPeriod;) {
            least = std::min(least, privateKb(program.process().id()));
            std::this_thread::sleep_for(Milliseconds(250));
        }
        std::cout << "after " << done << ": " << least << " kB" << std::endl;
        return static_cast<double>(least);
    };
    const double before = privateKbAfter(100);
    expectAtMost("private memory after 1,000 runs, beside 100", privateKbAfter(1000) / before,
                 1.02);
}

// The time from the player's last request, which is replied to at once, to the link in the pane.
TEST(Metrics, ArrivalToLink) {
    std::atomic<Clock::rep> sent{0};
    const Proxy proxy([&](const Exchange& to) {
        sent = Clock::now().time_since_epoch().count();
        to.forward();
    });
    const Program program(proxy.port());
    Times times;
    for (int i = 0; i < 15; ++i) {
        program.start(exampleAddresses[0]);
        driver().waitPart(program.control(controlId("output")), "<a href=");
        times.all.push_back(since(Clock::time_point(Clock::duration(sent))));
        program.awaitEndOfRun();
    }
    std::cout << "arrival to link: " << times << std::endl;
    expectAtMost("the preview's arrival to the link", times.median(), 30, "ms");
}

}  // namespace
}  // namespace velvox::e2e
