// A started program. The destructor kills it if it still runs.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velvox::drive {

using Milliseconds = std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

inline Milliseconds since(Clock::time_point start) {
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
}

class Process {
 public:
    /// With `piped`, the program's standard input and output are connected to `write` and
    /// `readUntil`, otherwise to /dev/null. Throws std::runtime_error if the program cannot be
    /// started.
    explicit Process(const std::vector<std::string>& command, bool piped = false);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    pid_t id() const { return id_; }

    /// The exit code (128 and more after a signal), or nothing if the program still runs after
    /// `time`.
    std::optional<int> exitWithin(Milliseconds time);

    void write(std::string_view bytes) const;
    void closeInput();
    /// The output up to a character, without it. Throws at the deadline and at the end of the
    /// output.
    std::string readUntil(char end, Milliseconds time);
    /// Everything up to the end of the output.
    std::string readAll(Milliseconds time);

 private:
    bool readMore(Clock::time_point deadline);

    pid_t id_ = 0;
    int watch_ = -1;  ///< readable once the program has ended
    int input_ = -1;
    int output_ = -1;
    std::string read_;
    std::optional<int> exit_;
};

/// Runs a program to its end and returns its output. Throws if it fails or takes too long.
std::string outputOf(const std::vector<std::string>& command, std::string_view input = "");

}  // namespace velvox::drive
