#include "tests/e2e/resource_usage.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace velvox::e2e {
namespace {

std::filesystem::path folderOf(pid_t program) {
    return std::filesystem::path("/proc") / std::to_string(program);
}

struct Stat {
    std::string name;
    pid_t parent = 0;
    long ticks = 0;  ///< processor time in clock ticks, in user and kernel mode
};

Stat statOf(pid_t program) {
    std::ifstream file(folderOf(program) / "stat");
    const std::string line{std::istreambuf_iterator<char>(file), {}};
    // The process name is in parentheses and may contain blanks.
    const auto end = line.rfind(')');
    if (end == line.npos) throw std::runtime_error("no such process");
    Stat stat;
    stat.name = line.substr(line.find('(') + 1, end - line.find('(') - 1);
    std::istringstream fields(line.substr(end + 1));
    std::string skipped;
    long user = 0;
    long system = 0;
    fields >> skipped >> stat.parent;
    for (int field = 5; field < 14; ++field) fields >> skipped;
    fields >> user >> system;
    stat.ticks = user + system;
    return stat;
}

long statusKb(pid_t program, const std::string& name) {
    std::ifstream file(folderOf(program) / "status");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(name + ":")) return std::stol(line.substr(name.size() + 1));
    throw std::runtime_error("no " + name);
}

int openFiles(pid_t program) {
    const auto folder = std::filesystem::directory_iterator(folderOf(program) / "fd");
    return static_cast<int>(std::distance(begin(folder), end(folder)));
}

pid_t sibling(const std::string& start) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        if (name.find_first_not_of("0123456789") != name.npos) continue;
        const pid_t id = std::stoi(name);
        try {
            const Stat stat = statOf(id);
            if (stat.parent == getppid() && stat.name.starts_with(start)) return id;
        } catch (const std::runtime_error&) {  // the process has ended meanwhile
        }
    }
    throw std::runtime_error("no " + start + " here: run directly under tools/with-session");
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const ResourceUsage& c) {
    return out << "gdi " << c.gdi << ", user " << c.user << ", threads " << c.threads << ", files "
               << c.files << ", server files " << c.serverFiles << ", resident " << c.residentKb
               << " kB, private " << c.privateKb << " kB";
}

ResourceUsage resourceUsage(pid_t program, const std::string& window) {
    ResourceUsage c;
    const std::string objects = driver().ask({"objects", window});
    if (std::sscanf(objects.c_str(), "gdi=%d user=%d", &c.gdi, &c.user) != 2)
        throw std::runtime_error(objects);
    c.threads = static_cast<int>(statusKb(program, "Threads"));
    c.files = openFiles(program);
    c.serverFiles = openFiles(wineServer());
    c.residentKb = statusKb(program, "VmRSS");
    c.privateKb = privateKb(program);
    return c;
}

long privateKb(pid_t program) try {
    return statusKb(program, "RssAnon");
} catch (const std::runtime_error&) {
    return 0;
}

Milliseconds processorTime(pid_t program) {
    return Milliseconds(statOf(program).ticks * 1000 / sysconf(_SC_CLK_TCK));
}

pid_t wineServer() {
    return sibling("wineserver");
}

pid_t displayServer() {
    return sibling("Xvfb");
}

}  // namespace velvox::e2e
