// A server for the six sites with replies of random quality.
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
    /// As long as the lock exists, no reply begins, so an awaited page stays awaited.
    std::unique_lock<std::shared_mutex> hold() { return std::unique_lock(replies_); }
    /// The number of the page that a run waits for, if any: the last requested page, if it was
    /// requested less than `time` ago. The default time is shorter than the program's page timeout,
    /// by more than a slow redirect takes. An open connection proves nothing, because the program
    /// may have given up its page.
    std::optional<long> awaited(Milliseconds time = Milliseconds(2400)) const;
    /// Number of requested pages, without players.
    long requests() const;
    /// Number of runs whose first page was requested.
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
    bool replied_ = true;  ///< the last request has its reply
    Clock::time_point lastRequest_;
    Proxy proxy_;  // the last member, because its threads use the others
};

}  // namespace velvox::e2e
