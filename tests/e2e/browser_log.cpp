#include "tests/e2e/browser_log.h"

#include <unistd.h>

#include <cstdlib>
#include <ctime>

#include "tools/drive/client/paths.h"
#include "tools/drive/client/process.h"

namespace velvox::e2e {
namespace {

std::filesystem::path temporaryFolder() {
    std::string folder = std::filesystem::temp_directory_path() / "velvox-browser-XXXXXX";
    if (!mkdtemp(folder.data())) throw std::runtime_error("no folder for the browser's log");
    return folder;
}

}  // namespace

// The browser is a shell script of the host system, which Wine starts like a program. The script
// logs the start time of its process, because a busy machine may execute the script much later.
BrowserLog::BrowserLog() {
    const std::filesystem::path folder = temporaryFolder();
    file_ = folder / "opened";
    const auto script = folder / "browser.sh";
    // The start time is the 22nd field of /proc/PID/stat, in clock ticks since boot.
    std::ofstream(script) << "#!/bin/sh\nread -r stat < /proc/$$/stat\nopened=$*\n"
                          << "set -- ${stat##*) }\nprintf '%s %s\\n' \"${20}\" \"$opened\" >> "
                          << file_.string() << '\n';
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    for (const std::string scheme : {"http", "https"})
        drive::outputOf({drive::paths::wine(), "reg", "add",
                         "HKLM\\Software\\Classes\\" + scheme + "\\shell\\open\\command", "/ve",
                         "/f", "/d", "Z:" + script.string() + " \"%1\""});
}

std::vector<BrowserLog::Entry> BrowserLog::take() {
    std::vector<Entry> entries;
    std::ifstream in(file_);
    in.seekg(read_);
    for (std::string line; std::getline(in, line) && !in.eof();) {
        read_ = in.tellg();
        std::size_t end = 0;
        const long ticks = std::stol(line, &end);
        entries.push_back({Time(ticks * 1000 / sysconf(_SC_CLK_TCK)), line.substr(end + 1)});
    }
    return entries;
}

BrowserLog::Time BrowserLog::now() {
    timespec time{};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return Time(time.tv_sec * 1000 + time.tv_nsec / 1'000'000);
}

}  // namespace velvox::e2e
