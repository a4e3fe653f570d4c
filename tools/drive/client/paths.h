// Where the parts of a run are: the build says the folders, the session the servers.
#pragma once

#include <string>

namespace velvox::drive::paths {

std::string wine();
std::string driver();
std::string velvox();
/// Velvox with a limit of three seconds instead of a minute for a page.
std::string velvoxShortTimeout();
/// Velvox with an HTML engine, so that the browser control is embedded.
std::string renderingVelvox();
/// Velvox on a system in high contrast.
std::string highContrastVelvox();
/// The program that shows every control.
std::string gallery();
/// A program of one empty window, to compare with.
std::string emptyWindow();
/// The replica sites as a proxy.
int sitesPort();
/// The Wine of this session: "wine8" or "wine10".
std::string platform();

}  // namespace velvox::drive::paths
