// The six sites with replies of random quality.
#pragma once

#include <map>
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
    /// The number of the longest awaited page, nothing when none is.
    std::optional<long> awaited() const;
    /// Runs of which the first page was asked for.
    /// Addresses asked for last, a line each.
    std::string lastAddresses() const;
    int runs() const { return runs_; }

 private:
    void serve(const Exchange& to);
    void reply(const Exchange& to, Behaviour behaviour);

    std::atomic<Behaviour> behaviour_ = Behaviour::Good;
    std::atomic<int> runs_ = 0;
    std::shared_mutex replies_;
    mutable std::mutex mutex_;
    std::set<long> awaited_;
    std::set<std::string> redirected_;
    long next_ = 0;
    Proxy proxy_;  // the last: its threads use the rest
};

}  // namespace velvox::e2e
