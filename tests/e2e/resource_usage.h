// Resources that a running program uses, as measured by the host and the driver.
#pragma once

#include <sys/types.h>

#include <ostream>
#include <string>

#include "tools/drive/client/driver.h"

namespace velvox::e2e {

using namespace velvox::drive;

struct ResourceUsage {
    int gdi = 0;   ///< drawing objects
    int user = 0;  ///< window objects
    int threads = 0;
    int files = 0;       ///< the program's open files on the host system, sockets among them
    long privateKb = 0;  ///< the resident memory that belongs to no file
};

std::ostream& operator<<(std::ostream& out, const ResourceUsage& c);

/// Resources of the program with a process id, whose main window is `window`.
ResourceUsage resourceUsage(pid_t program, const std::string& window);

/// Memory of a program that belongs to no file, in kB.
long privateKb(pid_t program);
/// Maximum of the private memory since forgetPeak().
long peakPrivateKb(pid_t program);
void forgetPeak(pid_t program);

/// Processor time since the program's start.
Milliseconds processorTime(pid_t program);

/// Wine's server of this session. It is a child of the parent process, because tools/with-session
/// starts both. Throws std::runtime_error.
pid_t wineServer();

}  // namespace velvox::e2e
