// Random acts of a user on the program, with random replies. Without arguments it runs three fixed
// seeds. For other seeds:
//
//     tools/with-session build/native/tests/e2e/storm_tests SEED ACTS [SEEDS]
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <span>

#include "tests/e2e/storm/storm.h"

namespace velvox::e2e {
namespace {

std::uint64_t firstSeed = 1;
std::size_t actsOfEach = 200;
std::uint64_t seeds = 3;

constexpr std::size_t shownActs = 20;
constexpr std::chrono::seconds shorteningTime{40};

/// The result of acts on a new program: the problem, if any, and the number of acts before it.
struct Outcome {
    std::size_t performed = 0;
    std::string problem;
    StormCount count;
    std::vector<std::string> trace;  ///< each act with the scene after it
};

Outcome run(BrowserLog& browser, std::span<const Act> acts) {
    Outcome outcome;
    std::unique_ptr<Storm> storm;
    try {
        storm = std::make_unique<Storm>(browser);
        for (const Act& act : acts) {
            ++outcome.performed;
            outcome.trace.push_back(describe(act));
            storm->perform(act);
            outcome.trace.back() += " -> " + describe(storm->scene());
        }
        storm->expectHealth();
    } catch (const std::exception& e) {
        outcome.problem = e.what();
    }
    if (storm) outcome.count = storm->count();
    return outcome;
}

std::string endOf(const std::vector<std::string>& trace) {
    std::string text;
    for (const std::string& line : std::span(trace).last(std::min(shownActs, trace.size())))
        text += "    " + line + '\n';
    return text;
}

/// The shortest tail of `acts` that causes the same problem on a new program, found by doubling and
/// halving its length. The time is limited, because each try starts a program. Returns all acts if
/// no tail causes the problem.
std::span<const Act> shortestFailingTail(BrowserLog& browser, std::span<const Act> acts,
                                         const std::string& problem) {
    const auto deadline = Clock::now() + shorteningTime;
    const auto breaks = [&](std::size_t length) {
        return Clock::now() < deadline && run(browser, acts.last(length)).problem == problem;
    };
    std::size_t length = 1;
    while (length < acts.size() && !breaks(length)) length *= 2;
    if (length >= acts.size()) return acts;
    std::size_t passing = length / 2;
    while (length - passing > 1) {
        const std::size_t middle = passing + (length - passing) / 2;
        (breaks(middle) ? length : passing) = middle;
    }
    return acts.last(length);
}

TEST(StormTest, NothingAUserDoesHangsMisfiresOrRunsAway) {
    BrowserLog browser;
    for (std::uint64_t seed = firstSeed; seed < firstSeed + seeds; ++seed) {
        const std::vector<Act> acts = actsOf(seed, actsOfEach);
        const Clock::time_point start = Clock::now();
        const Outcome outcome = run(browser, acts);
        std::cout << "seed " << seed << ": " << outcome.count.acts << " acts, "
                  << outcome.count.programs << " programs, " << outcome.count.runs << " runs, "
                  << outcome.count.opened << " links opened, " << since(start).count() << " ms"
                  << std::endl;
        if (outcome.problem.empty()) continue;
        ADD_FAILURE() << "seed " << seed << ", act " << outcome.performed << ": " << outcome.problem
                      << "\nthe last acts:\n"
                      << endOf(outcome.trace);
        std::cout << "the shortest end of the acts that breaks a fresh program:" << std::endl;
        for (const Act& act : shortestFailingTail(browser, std::span(acts).first(outcome.performed),
                                                  outcome.problem))
            std::cout << "    " << describe(act) << std::endl;
    }
}

}  // namespace
}  // namespace velvox::e2e

int main(int count, char** arguments) {
    testing::InitGoogleTest(&count, arguments);
    using namespace velvox::e2e;
    // The pane's menu saves files in the current folder.
    std::filesystem::current_path(std::filesystem::temp_directory_path());
    const auto number = [&](int at, auto standard) {
        return at < count ? std::strtoull(arguments[at], nullptr, 10) : standard;
    };
    firstSeed = number(1, firstSeed);
    actsOfEach = number(2, actsOfEach);
    seeds = number(3, count > 1 ? 1 : seeds);
    return RUN_ALL_TESTS();
}
