#pragma once

#include <functional>
#include <utility>

#include "controlkit/scroll_control.h"

namespace velvox::testing {

/// A fake window that records requests. Like a real window, it calls back when the capture ends.
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
    int period[2] = {};  // milliseconds of the arrows' timer and of the track's timer
    std::function<void()> onCaptureLost, onRepaint;
};

}  // namespace velvox::testing
