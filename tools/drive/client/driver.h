// The client of the driver, a program in Wine that reads and controls Velvox's windows. One driver
// process serves the whole test program.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "base/geometry.h"
#include "tools/drive/client/process.h"

namespace velvox {

std::ostream& operator<<(std::ostream& out, const Bounds& r);

namespace drive {

class Driver {
 public:
    Driver();

    /// Sends one request and returns the text after "ok". Throws std::runtime_error with the
    /// driver's reason if the request fails.
    std::string ask(const std::vector<std::string>& words);

    /// Sends one request and returns whether the driver answered "ok". For waits that may fail.
    bool holds(const std::vector<std::string>& words);

    std::string text(const std::string& window) { return ask({"text", window}); }
    Bounds rect(const std::string& window);
    bool visible(const std::string& window);
    bool enabled(const std::string& window);
    /// Handle of the focused window in the thread of `window`.
    std::string focus(const std::string& window) { return ask({"focus", window}); }

    void waitVisible(const std::string& window);
    void waitGone(const std::string& window);
    void waitText(const std::string& window, const std::string& text, Milliseconds time = patience);
    void waitPart(const std::string& window, const std::string& part);
    /// Waits for a message box and returns its title and text, a line each.
    std::string waitBox();
    /// Waits until the window's thread answers a message. Returns how long it took.
    Milliseconds ping(const std::string& window, Milliseconds time = patience);

    /// How long to wait for an effect that is immediate on an idle machine. While the machine also
    /// builds, a program may need ten seconds until it handles the first key.
    static constexpr Milliseconds patience{40'000};

 private:
    std::string exchange(const std::vector<std::string>& words);

    Process process_;
};

Driver& driver();

constexpr Milliseconds pollingPause{5};

/// Waits for a condition; false at the deadline.
template <class Condition>
bool eventually(Condition holds, Milliseconds time = Driver::patience) {
    const auto deadline = Clock::now() + time;
    while (!holds()) {
        if (Clock::now() >= deadline) return false;
        std::this_thread::sleep_for(pollingPause);
    }
    return true;
}

}  // namespace drive
}  // namespace velvox
