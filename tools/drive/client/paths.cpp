#include "tools/drive/client/paths.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace velvox::drive::paths {
namespace {

const std::filesystem::path tools = DRIVE_TOOLS;
const std::filesystem::path programs = DRIVE_PROGRAMS;

}  // namespace

std::string wine() {
    return tools / "wine";
}

std::string program(const std::string& name) {
    const auto file = programs / name;
    if (!exists(file)) throw std::runtime_error(file.string() + " is not built");
    return file;
}

int sitesPort() {
    const char* port = std::getenv("VELVOX_SITES_PORT");
    if (!port) throw std::runtime_error("no replica sites: run within tools/with-session");
    return std::atoi(port);
}

std::string platform() {
    const char* name = std::getenv("VELVOX_PLATFORM");
    if (!name) throw std::runtime_error("no platform: run within tools/with-session");
    return name;
}

}  // namespace velvox::drive::paths
