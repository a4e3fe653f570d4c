#pragma once

#include <windows.h>

#include <algorithm>
#include <utility>

#include "app/form1/controls.h"

namespace velvox {

/// A window timer that follows a timer of the form. Its owner passes WM_TIMER on to `tick`.
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

    /// A tick that was already under way when the timer was stopped is not delivered.
    /// A handler that switches its timer off and on again finds it running: the interval has just
    /// begun, and a timer that polls would spend most of its time on stopping and starting.
    void tick() {
        if (!model_.Enabled() || !model_.Tick) return;
        const Ticking outermost(*this);
        model_.Tick();
    }

 private:
    class Ticking {
     public:
        explicit Ticking(WindowTimer& timer)
            : timer_(timer), nested_(std::exchange(timer.ticking_, true)) {}
        Ticking(const Ticking&) = delete;
        Ticking& operator=(const Ticking&) = delete;
        ~Ticking() {
            if (nested_) return;
            timer_.ticking_ = false;
            if (timer_.wanted() != timer_.running_) timer_.restart();
        }

     private:
        WindowTimer& timer_;
        bool nested_;
    };

    /// Milliseconds, or 0 for a stopped timer. Every timer here drives a display, and none
    /// runs faster than the eye can follow. A poll each millisecond, which Windows would round up
    /// to 16, would cost an idle program more than everything else that it does.
    UINT wanted() const {
        constexpr UINT shortest = 50;
        return model_.Enabled() ? std::max(model_.Interval(), shortest) : 0;
    }

    void restart() {
        running_ = wanted();
        // Setting it again also restarts its interval.
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
