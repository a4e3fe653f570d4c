// Replays the fuzzers' corpus: tests/corpus/TARGET/ has inputs that once failed or that reach a
// path of their own. A target that finds a fault aborts the test program.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "tests/fuzz/fuzz_targets.h"

namespace velvox::fuzz {
namespace {

// The build lists the targets, each as a TARGET(name).
#define TARGET(name) {#name, name},

TEST(CorpusTest, EveryInputPassesItsTarget) {
    const std::pair<const char*, Target*> targets[] = {VELVOX_TARGETS};
    for (const auto& [name, target] : targets) {
        int inputs = 0;
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::path(VELVOX_CORPUS) / name)) {
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string input{std::istreambuf_iterator<char>(file), {}};
            replayed = entry.path().string();
            target(input);
            // Each truncated input is another hostile input.
            for (std::size_t size = 0; size < input.size(); size += 1 + input.size() / 64)
                target(std::string_view(input).substr(0, size));
            ++inputs;
        }
        EXPECT_GT(inputs, 0) << name;
    }
}

// Runs targets on random bytes. For example, a superseded navigation must never give a link.
TEST(RandomEventsTest, StateMachinesKeepTheirPromises) {
    const struct {
        const char* name;
        Target* target;
        int runs;
    } rows[] = {{"navigation", navigation, 10'000},
                {"button", button, 500},
                {"scroll_geometry", scroll_geometry, 1'000}};
    std::mt19937 random;
    for (const auto& row : rows) {
        for (int run = 0; run < row.runs; ++run) {
            std::string bytes(20 + random() % 200, ' ');
            for (char& byte : bytes) byte = static_cast<char>(random());
            replayed = row.name + (" run " + std::to_string(run));
            row.target(bytes);
        }
    }
}

}  // namespace
}  // namespace velvox::fuzz
