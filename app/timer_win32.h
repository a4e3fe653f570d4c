#pragma once

#include <windows.h>

#include "app/controls.h"

namespace velvox {

/// A window timer that follows a timer of the form. Its owner passes WM_TIMER on to `tick`.
class WindowTimer : public ControlView {
 public:
    WindowTimer(Timer& model, HWND window, UINT_PTR id) : model_(model), window_(window), id_(id) {
        model_.setView(this);
        restart();
    }
    WindowTimer(const WindowTimer&) = delete;
    WindowTimer& operator=(const WindowTimer&) = delete;
    ~WindowTimer() override {
        model_.setView(nullptr);
        KillTimer(window_, id_);
    }

    void follow(Aspect) override { restart(); }

    UINT_PTR id() const noexcept { return id_; }

    /// A tick that was already under way when the timer was stopped is not delivered.
    void tick() const {
        if (model_.Enabled() && model_.Tick) model_.Tick();
    }

 private:
    void restart() {
        KillTimer(window_, id_);
        if (model_.Enabled()) SetTimer(window_, id_, model_.Interval(), nullptr);
    }

    Timer& model_;
    HWND window_;
    UINT_PTR id_;
};

}  // namespace velvox
