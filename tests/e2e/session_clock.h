// Time for verdicts that must not depend on how busy the machine is.
#pragma once

#include "tools/drive/client/process.h"

namespace velvox::e2e {

using namespace velvox::drive;

/// Wall time less what the threads of this session (all programs with its WINEPREFIX) spent ready
/// to run without a processor, from the first call on,
/// exact to a fifth of a second. A program that hangs lets it pass, one that
/// others keep from running does not.
Milliseconds sessionTime();

/// A deadline in session time, and a far one in wall time for programs that keep each other busy.
class Deadline {
 public:
    explicit Deadline(Milliseconds time);
    bool passed() const { return sessionTime() >= end_ || Clock::now() >= wallEnd_; }

 private:
    Milliseconds end_;
    Clock::time_point wallEnd_;
};

}  // namespace velvox::e2e
