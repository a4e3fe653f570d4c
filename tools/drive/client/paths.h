// Paths of programs, which the build defines, and the servers of the current session.
#pragma once

#include <string>

namespace velvox::drive::paths {

std::string wine();
/// A program of the win32 build, by its file name. Throws std::runtime_error when it is not built.
std::string program(const std::string& name);
/// The port of the proxy that serves the replica sites.
int sitesPort();
/// The Wine version of this session: "wine8" or "wine10".
std::string platform();

}  // namespace velvox::drive::paths
