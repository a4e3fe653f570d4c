// Runs Velvox on a server of hostile replies and measures the outcome and the cost of each.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <ostream>
#include <thread>

#include "tests/e2e/hostile_replies.h"
#include "tests/e2e/program.h"

namespace velvox::e2e {

/// Samples a program's private memory as long as this object exists.
class PeakMemory {
 public:
    explicit PeakMemory(pid_t program);
    PeakMemory(const PeakMemory&) = delete;
    PeakMemory& operator=(const PeakMemory&) = delete;
    ~PeakMemory();

    long kilobytes() const { return peak_; }

 private:
    std::atomic<long> peak_{0};
    std::atomic<bool> stopped_{false};
    std::thread sampler_;
};

struct Observation {
    std::string pane;         ///< "link", "failure", "waiting", or the text if it is none of these
    Milliseconds time{};      ///< from the press of Download to the outcome
    Milliseconds answered{};  ///< maximum response time of the window
    long peakKb = 0;          ///< maximum of the program's private memory during the run
    std::intmax_t diskBytes = 0;  ///< growth of the user's files and of the temporary files
};

std::ostream& operator<<(std::ostream& out, const Observation& seen);

class HostileServer {
 public:
    /// Runs Velvox on a reply. Fails the current test if the outcome is not the expected one or a
    /// cost exceeds its bound.
    Observation observe(const HostileReply& reply);
    /// Requires that a run of the same program on the replica sites succeeds.
    void expectGoodRun();
    /// Ends the program. The next reply gets a new one.
    void restart() { program_.reset(); }

 private:
    void start(bool isHasty);
    Observation run(const HostileReply& reply, Milliseconds limit);

    Proxy proxy_{Proxy::forwarding};
    std::optional<Program> program_;
    bool hasty_ = false;
};

}  // namespace velvox::e2e
