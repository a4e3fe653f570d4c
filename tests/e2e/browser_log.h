// A fake browser of the session, which only records the addresses that it is started with.
#pragma once

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace velvox::e2e {

class BrowserLog {
 public:
    /// Milliseconds since the machine's start.
    using Time = std::chrono::milliseconds;

    struct Entry {
        Time time;  ///< the start of the browser, exact to a hundredth of a second
        std::string arguments;
    };

    /// Registers the browser for http and https in the session's prefix, for programs that start
    /// later.
    BrowserLog();

    /// Returns the addresses that were opened since the last call.
    std::vector<Entry> take();

    static Time now();

 private:
    std::filesystem::path file_;
    std::streamoff read_ = 0;
};

}  // namespace velvox::e2e
