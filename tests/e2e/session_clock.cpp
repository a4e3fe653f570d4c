#include "tests/e2e/session_clock.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

namespace velvox::e2e {
namespace {

namespace fs = std::filesystem;
using Nanoseconds = std::chrono::nanoseconds;

constexpr Milliseconds precision{200};  // reading all processes takes some milliseconds
constexpr int wallTimes = 30;  // wall time of a deadline, as a multiple of its session time

bool isNumber(const std::string& name) {
    return name.find_first_not_of("0123456789") == name.npos;
}

bool belongsToSession(const fs::path& process) {
    const char* const prefix = std::getenv("WINEPREFIX");
    if (!prefix) throw std::runtime_error("there is no session");
    std::ifstream file(process / "environ");
    const std::string all{std::istreambuf_iterator<char>(file), {}};
    return all.find(std::string("WINEPREFIX=") + prefix + '\0') != all.npos;
}

class WaitingTimes {
 public:
    // The sum for all threads seen so far. The last wait of threads that have ended is missing.
    Nanoseconds sum() {
        std::error_code ended;
        for (const auto& process : fs::directory_iterator("/proc")) {
            if (!isNumber(process.path().filename()) || !belongsToSession(process)) continue;
            for (const auto& thread : fs::directory_iterator(process.path() / "task", ended))
                add(thread);
        }
        return sum_;
    }

 private:
    void add(const fs::path& thread) {
        std::ifstream file(thread / "schedstat");
        long long ran = 0, waited = 0;
        if (!(file >> ran >> waited)) return;
        long long& before = threads_[thread];
        if (waited < before) before = 0;  // a new thread has the number of one that has ended
        sum_ += Nanoseconds(waited - before);
        before = waited;
    }

    std::map<fs::path, long long> threads_;  ///< nanoseconds that each thread has waited
    Nanoseconds sum_{0};
};

}  // namespace

Milliseconds sessionTime() {
    static WaitingTimes waiting;
    static const auto start = Clock::now() - waiting.sum();
    static Clock::time_point lastLook = start;
    static Nanoseconds time{0};
    if (Clock::now() - lastLook < precision) return std::chrono::duration_cast<Milliseconds>(time);
    // The waiting times of threads that wait at the same time are added up, so the difference below
    // can shrink. Time must not run backwards then.
    time = std::max(time, Clock::now() - start - waiting.sum());
    lastLook = Clock::now();
    return std::chrono::duration_cast<Milliseconds>(time);
}

Deadline::Deadline(Milliseconds time)
    : end_(sessionTime() + time), wallEnd_(Clock::now() + wallTimes * time) {}

}  // namespace velvox::e2e
