// Velvox against a server of hostile replies: what comes of each, and what it costs.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <ostream>
#include <thread>

#include "tests/e2e/hostile_replies.h"
#include "tests/e2e/program.h"

namespace velvox::e2e {

/// Samples a program's private memory as long as it lives.
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
    Milliseconds time{};      ///< from the press of Download to that text
    Milliseconds answered{};  ///< longest time that the window took to answer
    long peakKb = 0;          ///< private memory
    std::intmax_t diskBytes = 0;  ///< that the files of the user and temporary ones have grown by
};

std::ostream& operator<<(std::ostream& out, const Observation& seen);

class HostileServer {
 public:
    /// A run on that reply. Fails the current test if it ends otherwise than stated, or costs more.
    Observation observe(const HostileReply& reply);
    /// A good run on the replica sites, by the same program.
    void expectGoodRun();
    /// The next reply gets a fresh program.
    void restart() { program_.reset(); }

 private:
    void start(bool isHasty);
    Observation run(const HostileReply& reply, Milliseconds limit);

    Proxy proxy_{Proxy::forwarding};
    std::optional<Program> program_;
    bool hasty_ = false;
};

}  // namespace velvox::e2e
