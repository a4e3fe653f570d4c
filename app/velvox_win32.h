#pragma once

#include "app/net/transfer_control_win32.h"

namespace velvox {

/// Runs the program until its window is closed; returns the process's exit code. `limits` apply to
/// each page fetch and each navigation of the preview.
int runVelvox(const TransferLimits& limits);

}  // namespace velvox
