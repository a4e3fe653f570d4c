// A clock for tests whose result must not depend on how busy the machine is.
#pragma once

#include "tools/drive/client/process.h"

namespace velvox::e2e {

using namespace velvox::drive;

/// Wall time since the first call, without the time that the threads of this session (all programs
/// with its WINEPREFIX) were ready to run but had no processor. It is exact to a fifth of a second.
/// It advances while a program hangs, but not while other programs keep it from running.
Milliseconds sessionTime();

/// A deadline in session time. It also passes after a much longer wall time, because session time
/// hardly advances while the session's programs keep each other from running.
class Deadline {
 public:
    explicit Deadline(Milliseconds time);
    bool passed() const { return sessionTime() >= end_ || Clock::now() >= wallEnd_; }

 private:
    Milliseconds end_;
    Clock::time_point wallEnd_;
};

}  // namespace velvox::e2e
