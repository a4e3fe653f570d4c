#pragma once

#include <functional>
#include <utility>

#include "controlkit/scroll_control.h"

namespace velvox::testing {

/// A window that only remembers, and loses the capture as a real one does: with a call back.
class FakeScrollHost : public ScrollHost {
 public:
    void repaint() override {
        if (onRepaint) onRepaint();
    }
    void capture(bool on) override {
        const bool had = std::exchange(captured, on);
        if (had && !on && onCaptureLost) onCaptureLost();
    }
    void startTimer(RepeatTimer timer, int milliseconds) override {
        period[static_cast<int>(timer)] = milliseconds;
    }
    void stopTimer(RepeatTimer timer) override { period[static_cast<int>(timer)] = 0; }
    void requestLeave() override { ++leaveRequests; }
    void enable(bool on) override { enabled = on; }
    bool atRest() const { return !captured && !period[0] && !period[1]; }

    int leaveRequests = 0;
    bool captured = false;
    bool enabled = true;
    int period[2] = {};  // of the arrows, of the track
    std::function<void()> onCaptureLost, onRepaint;
};

}  // namespace velvox::testing
