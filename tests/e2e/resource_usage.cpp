#include "tests/e2e/resource_usage.h"

#include <unistd.h>

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace velvox::e2e {
namespace {

std::filesystem::path folderOf(pid_t program) {
    return std::filesystem::path("/proc") / std::to_string(program);
}

long status(pid_t program, const std::string& name) {
    std::ifstream file(folderOf(program) / "status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
    throw std::runtime_error("no " + name);
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ResourceUsage& c) {
    return out << "gdi " << c.gdi << ", user " << c.user << ", threads " << c.threads << ", files "
               << c.files << ", private " << c.privateKb << " kB";
}

ResourceUsage resourceUsage(pid_t program, const std::string& window) {
    ResourceUsage c;
    const std::string objects = driver().ask({"objects", window});
    if (std::sscanf(objects.c_str(), "gdi=%d user=%d", &c.gdi, &c.user) != 2)
        throw std::runtime_error(objects);
    c.threads = static_cast<int>(status(program, "Threads"));
    const auto files = std::filesystem::directory_iterator(folderOf(program) / "fd");
    c.files = static_cast<int>(std::distance(begin(files), end(files)));
    c.privateKb = privateKb(program);
    return c;
}

long privateKb(pid_t program) {
    return status(program, "RssAnon");
}

long peakPrivateKb(pid_t program) {
    return status(program, "VmHWM") - status(program, "RssFile");
}

void forgetPeak(pid_t program) {
    if (!(std::ofstream(folderOf(program) / "clear_refs") << 5 << std::flush))
        throw std::runtime_error("the peak of the memory is not reset");
}

Milliseconds processorTime(pid_t program) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(program, &clock) != 0 || clock_gettime(clock, &time) != 0)
        throw std::runtime_error("no such process");
    return Milliseconds(time.tv_sec * 1000 + time.tv_nsec / 1'000'000);
}

pid_t wineServer() {
    const std::filesystem::path parent = folderOf(getppid());
    std::ifstream children(parent / "task" / parent.filename() / "children");
    for (pid_t id = 0; children >> id;) {
        std::string name;
        std::ifstream(folderOf(id) / "comm") >> name;
        if (name.starts_with("wineserver")) return id;
    }
    throw std::runtime_error("no server of Wine here: run directly under tools/with-session");
}

}  // namespace velvox::e2e
