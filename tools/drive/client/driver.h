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
    bool visible(const std::string& window) { return stateHas(window, "visible=1"); }
    bool enabled(const std::string& window) { return stateHas(window, "enabled=1"); }
    bool minimised(const std::string& window) { return stateHas(window, "minimised=1"); }
    /// Handle of the focused window in the thread of `window`.
    std::string focus(const std::string& window) { return ask({"focus", window}); }

    /// How long to wait for an effect that is immediate on an idle machine. While the machine also
    /// builds, a program may need ten seconds until it handles the first key.
    static constexpr Milliseconds patience{40'000};

    void waitVisible(const std::string& window) { ask({"wait", window, number(patience)}); }
    void waitGone(const std::string& window) { ask({"gone", window, number(patience)}); }
    void waitText(const std::string& window, const std::string& text,
                  Milliseconds time = patience) {
        ask({"until", window, "equals", text, number(time)});
    }
    void waitPart(const std::string& window, const std::string& part) {
        ask({"until", window, "contains", part, number(patience)});
    }
    /// Waits for a message box and returns its title and text, a line each.
    std::string waitBox() { return ask({"box", number(patience)}); }
    /// Waits until the window's thread answers a message. Returns how long it took.
    Milliseconds ping(const std::string& window, Milliseconds time = patience) {
        return Milliseconds(std::stol(ask({"ping", window, number(time)})));
    }

 private:
    static std::string number(Milliseconds time) { return std::to_string(time.count()); }
    bool stateHas(const std::string& window, const char* part) {
        return ask({"state", window}).find(part) != std::string::npos;
    }
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
