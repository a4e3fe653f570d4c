// What a running program uses of the machine, as the host and the driver see it.
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
    int files = 0;        ///< the host's open files, sockets among them
    int serverFiles = 0;  ///< the same of Wine's server: a file for each system handle and more
    long residentKb = 0;
    long privateKb = 0;  ///< of these what belongs to no file
};

std::ostream& operator<<(std::ostream& out, const ResourceUsage& c);

/// Of the program with that id, whose main window is `window`.
ResourceUsage resourceUsage(pid_t program, const std::string& window);

/// Memory of a program that belongs to no file, in kB; 0 once it has ended.
long privateKb(pid_t program);

/// Time on a processor since the program's start.
Milliseconds processorTime(pid_t program);

/// The Wine server and the display's server of this session: children of the parent process, as
/// tools/with-session starts them all. Throws std::runtime_error.
pid_t wineServer();
pid_t displayServer();

}  // namespace velvox::e2e
