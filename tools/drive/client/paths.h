// Paths of programs, which the build defines, and the servers of the current session.
#pragma once

#include <string>

namespace velvox::drive::paths {

std::string wine();
/// A program of the win32 build. Throws std::runtime_error when it is not built.
std::string program(const char* name);
inline std::string driver() {
    return program("drive.exe");
}
inline std::string velvox() {
    return program("velvox.exe");
}
/// Velvox with a limit of three seconds instead of a minute for a page.
inline std::string velvoxShortTimeout() {
    return program("velvox-short-timeout.exe");
}
/// Velvox with an HTML engine, so that the browser control is embedded.
inline std::string renderingVelvox() {
    return program("velvox-rendering.exe");
}
/// Velvox on a system in high contrast.
inline std::string highContrastVelvox() {
    return program("velvox-high-contrast.exe");
}
/// The program that shows every control.
inline std::string gallery() {
    return program("gallery/velvox-gallery.exe");
}
/// A program with a single empty window, with which Velvox is compared.
inline std::string emptyWindow() {
    return program("empty-window.exe");
}
/// The port of the proxy that serves the replica sites.
int sitesPort();
/// The Wine version of this session: "wine8" or "wine10".
std::string platform();

}  // namespace velvox::drive::paths
