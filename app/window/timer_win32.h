#pragma once

#include <windows.h>

#include <algorithm>

#include "app/form1/controls.h"

namespace velvox {

/// A window timer that follows the interval and the enabled state of a Timer of the form. Its owner
/// passes WM_TIMER on to `tick`.
class WindowTimer : public ControlObserver {
 public:
    WindowTimer(Timer& model, HWND window, UINT_PTR id) : model_(model), window_(window), id_(id) {
        model_.setObserver(this);
        restart();
    }
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;
    ~WindowTimer() override {
        model_.setObserver(nullptr);
        KillTimer(window_, id_);
    }

    void controlChanged(ControlChange) override {
        if (!ticking_) restart();
    }

    UINT_PTR id() const noexcept { return id_; }

    /// Calls the handler, unless the model has been stopped since the tick began. If the handler
    /// turns its timer off and on again, the window timer is not restarted: its interval has only
    /// just begun, and a polling timer would spend most of its time on restarts.
    void tick() {
        if (!model_.Enabled() || !model_.Tick) return;
        ticking_ = true;
        const struct End {
            WindowTimer& timer;
            ~End() {
                timer.ticking_ = false;
                if (timer.wanted() != timer.running_) timer.restart();
            }
        } end{*this};
        model_.Tick();
    }

 private:
    /// Period in milliseconds, or 0 for a stopped timer. Every timer of the form drives a display,
    /// so none runs faster than the eye can follow. A timer of 1 ms, which Windows would raise to
    /// 16 ms, would cost an idle program more than all its other work.
    UINT wanted() const {
        constexpr UINT shortest = 50;
        return model_.Enabled() ? std::max(model_.Interval(), shortest) : 0;
    }

    void restart() {
        running_ = wanted();
        // For a running timer, SetTimer restarts the interval.
        if (running_ != 0)
            SetTimer(window_, id_, running_, nullptr);
        else
            KillTimer(window_, id_);
    }

    Timer& model_;
    HWND window_;
    UINT_PTR id_;
    UINT running_ = 0;
    bool ticking_ = false;
};

}  // namespace velvox
