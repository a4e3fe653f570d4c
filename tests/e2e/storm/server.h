// The six sites with replies of random quality.
#pragma once

#include <optional>
#include <set>
#include <shared_mutex>

#include "tests/e2e/proxy.h"
#include "tests/e2e/storm/act.h"

namespace velvox::e2e {

class StormServer {
 public:
    StormServer();

    int port() const { return proxy_.port(); }

    void behave(Behaviour behaviour) { behaviour_ = behaviour; }
    /// As long as the lock lives, no reply begins: what is awaited stays so.
    std::unique_lock<std::shared_mutex> hold() { return std::unique_lock(replies_); }
    /// The number of the page that a run waits for: asked for last, and less than `time` ago, by
    /// default less than the program gives a page by more than a slow redirect to it takes. A
    /// connection of which the program has given up the page may stay open.
    std::optional<long> awaited(Milliseconds time = Milliseconds(2400)) const;
    /// Pages asked for, without players.
    long requests() const;
    /// Addresses asked for last, a line each.
    std::string lastAddresses() const;
    /// Runs of which the first page was asked for.
    int runs() const { return runs_; }

 private:
    void serve(const Exchange& to);
    static void reply(const Exchange& to, Behaviour behaviour);

    std::atomic<Behaviour> behaviour_ = Behaviour::Good;
    std::atomic<int> runs_ = 0;
    std::shared_mutex replies_;
    mutable std::mutex mutex_;
    std::set<std::string> redirected_;
    long requests_ = 0;
    bool replied_ = true;  ///< to the last of them
    Clock::time_point lastRequest_;
    Proxy proxy_;  // the last: its threads use the rest
};

}  // namespace velvox::e2e
