#pragma once

#include "app/net/transfer_control_win32.h"

namespace velvox {

/// Runs the program until its window is closed; answers the process's exit code. `limits` is what
/// one page fetch may take.
int runVelvox(const TransferLimits& limits);

}  // namespace velvox
