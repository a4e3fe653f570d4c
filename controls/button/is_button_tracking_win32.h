// Notifications that the pointer has left a window. Not every system has them, and some have them
// in another library.
#pragma once

#include <windows.h>

#include "controls/button/is_button.h"

namespace velvox {

/// Finds procedures of the system's libraries; tests take each away.
class ProcedureFinder {
 public:
    virtual ~ProcedureFinder() = default;

    /// Null when the library or the procedure does not exist.
    virtual FARPROC find(const char* library, const char* procedure) = 0;
};

ProcedureFinder& systemProcedures();

class LeaveTracker {
 public:
    LeaveTracker() = default;

    /// Takes "TrackMouseEvent" of User32, or else "_TrackMouseEvent" of Comctl32.
    explicit LeaveTracker(ProcedureFinder& finder);

    Tracking available() const noexcept { return available_; }

    /// One WM_MOUSELEAVE for `window` when the pointer leaves it.
    void request(HWND window) const;

 private:
    using Track = decltype(&TrackMouseEvent);

    Tracking available_ = Tracking::None;
    Track track_ = nullptr;
};

}  // namespace velvox
