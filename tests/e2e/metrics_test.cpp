// Metrics of the running program for docs/performance.md. Metrics with a bound are checked, which
// needs a quiet machine. tools/metrics runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iostream>

#include "tests/e2e/hostile_server.h"
#include "tests/e2e/program.h"
#include "tests/e2e/proxy.h"
#include "tests/e2e/resource_usage.h"
#include "tests/metrics/metric.h"
#include "tools/drive/client/paths.h"

namespace velvox::e2e {
namespace {

long long since(Clock::time_point start) {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start).count();
}

// Milliseconds from the start of the process until its window has been painted and answers a
// message.
long long startTime(const std::string& file, const std::string& windowClass) {
    const auto start = Clock::now();
    Process process({paths::wine(), file});
    driver().waitVisible(windowClass);
    driver().ping(windowClass);
    const long long spent = since(start);
    driver().ask({"close", windowClass});
    process.exitWithin(Driver::patience);
    return spent;
}

struct Times {
    std::vector<long long> all;

    long long median() {
        std::sort(all.begin(), all.end());
        return all[all.size() / 2];
    }
};

std::ostream& operator<<(std::ostream& out, Times times) {
    out << "median " << times.median() << " ms of";
    for (const long long time : times.all) out << ' ' << time;
    return out;
}

TEST(Metrics, Start) {
    constexpr int runs = 15;
    Times own;
    Times empty;
    for (int i = -1; i < runs; ++i) {
        const long long a = startTime(paths::velvox(), "Form1");
        const long long b = startTime(paths::emptyWindow(), "Empty");
        if (i < 0) continue;  // the first start reads the files from the disk
        own.all.push_back(a);
        empty.all.push_back(b);
    }
    std::cout << "Velvox: " << own << "\nempty window: " << empty << std::endl;
    expectAtMost("start, beside an empty window",
                 static_cast<double>(own.median()) / static_cast<double>(empty.median()), 1.6);
}

TEST(Metrics, MemoryAfterStart) {
    const Process empty({paths::wine(), paths::emptyWindow()});
    driver().waitVisible("Empty");
    driver().ping("Empty");
    const long least = privateKb(empty.id());
    const Program program;
    const long own = privateKb(program.process().id());
    std::cout << "private memory: " << own << " kB, an empty window " << least << " kB\n";
    expectAtMost("private memory after start, beside an empty window",
                 static_cast<double>(own) / static_cast<double>(least), 2);
}

/// Percent of a core that the idle program and the session's servers take.
double percentIdle(const Proxy::Handler& news) {
    constexpr Milliseconds settling{5000};
    constexpr Milliseconds measured{60'000};
    const Proxy proxy([](const Exchange& to) { to.forward(); }, news);
    const Program program(Network::proxy(proxy.port()));
    std::this_thread::sleep_for(settling);
    const pid_t programs[] = {program.process().id(), wineServer(), displayServer()};
    std::vector<Milliseconds> spent;
    for (const pid_t id : programs) spent.push_back(-processorTime(id));
    std::this_thread::sleep_for(measured);
    for (std::size_t i = 0; i < spent.size(); ++i) spent[i] += processorTime(programs[i]);
    const auto percent = [&](Milliseconds time) {
        return 100.0 * static_cast<double>(time.count()) / static_cast<double>(measured.count());
    };
    std::cout << "Velvox " << percent(spent[0]) << " % of a core, Wine's server "
              << percent(spent[1]) << " %, the display " << percent(spent[2]) << " %" << std::endl;
    return percent(spent[0] + spent[1]);
}

TEST(Metrics, IdleWithNews) {
    expectAtMost("idle with the news scrolling, and Wine's server", percentIdle(Proxy::forwarding),
                 1, "%");
}

TEST(Metrics, IdleWithSilentNews) {
    percentIdle([](const Exchange& to) { to.staySilent(); });
}

// Prints the resources before the acts, in the middle and after them. Resources that are kept once
// show in the first half only, leaks show in both halves.
void printGrowth(const Program& program, int times, const std::function<void(int)>& act) {
    const auto print = [&](int done) {
        std::cout << "after " << done << ": "
                  << resourceUsage(program.process().id(), program.window()) << std::endl;
    };
    print(0);
    const auto start = Clock::now();
    for (int i = 0; i < times; ++i) {
        act(i);
        if (i + 1 == times / 2 || i + 1 == times) print(i + 1);
    }
    std::cout << times << " took " << since(start) << " ms\n";
}

// The time from the user's act to the end of the process.
TEST(Metrics, ClosingDuringASilentFetch) {
    constexpr int tries = 20;
    const Proxy proxy([](const Exchange& to) { to.staySilent(); });
    const auto command = [](const Program& p, const char* number) {
        driver().ask({"post", p.window(), "0x112", number, "0"});
    };
    const struct {
        const char* name;
        bool minimised;
        std::function<void(const Program&)> act;
    } ways[] = {
        {"quit button", false, [](const Program& p) { p.click(controlId("isButton2")); }},
        {"Alt+F4", false, [](const Program&) { InputSimulator().key("alt+F4").act(); }},
        {"WM_CLOSE", false,
         [](const Program& p) {
             driver().ask({"close", p.window()});
         }},
        {"WM_CLOSE, minimised", true,
         [](const Program& p) {
             driver().ask({"close", p.window()});
         }},
        {"taskbar, minimised", true, [&](const Program& p) { command(p, "0xF060"); }},
    };
    std::size_t asked = 0;
    for (const auto& way : ways) {
        Times times;
        for (int i = 0; i < tries; ++i) {
            Program program(Network::proxy(proxy.port()));
            program.start("http://www.youtube.com/watch?v=abc");
            ASSERT_TRUE(proxy.asked(++asked));
            if (way.minimised) command(program, "0xF020");
            driver().ping(program.window());
            const auto start = Clock::now();
            way.act(program);
            ASSERT_EQ(program.process().exitWithin(Driver::patience), 0);
            times.all.push_back(since(start));
        }
        std::cout << way.name << ": " << times << std::endl;
    }
}

TEST(Metrics, GrowthOfRuns) {
    const Proxy proxy([](const Exchange& to) { to.forward(); });
    const Program program(Network::proxy(proxy.port()));
    std::size_t done = 0;
    const auto privateKbAfter = [&](std::size_t runs) {
        for (; done < runs; ++done)
            EXPECT_TRUE(
                program.runByMessages(exampleAddresses[done % std::size(exampleAddresses)]));
        const auto now = resourceUsage(program.process().id(), program.window());
        std::cout << "after " << done << ": " << now << std::endl;
        return static_cast<double>(now.privateKb);
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
    const Program program(Network::proxy(proxy.port()));
    Times times;
    for (int i = 0; i < 15; ++i) {
        program.start(exampleAddresses[0]);
        driver().waitPart(program.control(controlId("output")), "<a href=");
        times.all.push_back(since(Clock::time_point(Clock::duration(sent))));
        program.awaitEndOfRun();
    }
    std::cout << "arrival to link: " << times << std::endl;
    expectAtMost("the preview's arrival to the link", static_cast<double>(times.median()), 30,
                 "ms");
}

// The ticks of an hour: the news strip, the blinking link, and a news request every eleven seconds.
TEST(Metrics, GrowthOfAnHour) {
    constexpr int scrolls = 36'000;
    constexpr int scrollsPerBlink = 5;
    constexpr int scrollsPerRequest = 110;
    std::atomic<int> requests{0};
    const Proxy proxy([](const Exchange& to) { to.forward(); },
                      [&](const Exchange& to) {
                          ++requests;
                          to.forward();
                      });
    const Program program(Network::proxy(proxy.port()));
    const auto step = [&](int i) {
        program.tick(5);
        if (i % scrollsPerBlink == 0) program.tick(1);
        if (i % scrollsPerRequest == 0) {
            program.tick(7);
            program.tick(6);
        }
    };
    for (int i = 0; i < 2 * scrollsPerRequest; ++i) step(i);
    printGrowth(program, scrolls, step);
    std::cout << requests << " requests for news\n";
}

// Every hostile reply, each with a new program. The outcomes are checked as well.
TEST(Metrics, HostileReplies) {
    HostileServer server;
    for (const HostileReply& reply : hostileReplies()) {
        std::cout << reply.name << ": " << server.observe(reply) << std::endl;
        SCOPED_TRACE(reply.name);
        server.expectGoodRun();
        server.restart();
    }
}

}  // namespace
}  // namespace velvox::e2e
