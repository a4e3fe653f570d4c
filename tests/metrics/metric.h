// A measured value beside what it may be at most.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace velvox {

/// Prints the value, its bound and whether that holds, which is also expected of it.
inline void expectAtMost(const std::string& name, double value, double bound,
                         const std::string& unit = "times") {
    std::printf("%-52s %8.2f %-6s %6g at most: %s\n", name.c_str(), value, unit.c_str(), bound,
                value <= bound ? "holds" : "does not hold");
    std::fflush(stdout);
    EXPECT_LE(value, bound) << name;
}

/// Milliseconds that an action takes at the least, as what else runs only makes it slower.
/// `prepare` comes before each try and does not count.
template <class Prepare, class Action>
double fastest(int tries, Prepare prepare, Action action) {
    double least = 1e9;
    for (; tries > 0; --tries) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        action();
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        least = std::min(least, taken.count());
    }
    return least;
}

template <class Action>
double fastest(int tries, Action action) {
    return fastest(
        tries, [] {}, action);
}

}  // namespace velvox
