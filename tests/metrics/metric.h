// Compares a measured value with its bound.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace velvox {

/// Prints the value, its bound and whether the bound holds. The test fails if it does not hold.
inline void expectAtMost(const std::string& name, double value, double bound,
                         const std::string& unit = "times") {
    std::printf("%-52s %8.2f %-6s %6g at most: %s\n", name.c_str(), value, unit.c_str(), bound,
                value <= bound ? "holds" : "does not hold");
    std::fflush(stdout);
    EXPECT_LE(value, bound) << name;
}

/// The shortest duration of an action in milliseconds, because other programs can only slow it
/// down. `prepare` runs before each try and is not measured.
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
