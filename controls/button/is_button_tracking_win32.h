// Notifications that the pointer has left a window. Some systems lack the function that requests
// them, and some have it in another library.
#pragma once

#include <windows.h>

#include "controls/button/is_button.h"

namespace velvox {

/// Finds procedures of system libraries. Tests replace it to simulate missing procedures.
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

    /// Uses "TrackMouseEvent" of User32, or else "_TrackMouseEvent" of Comctl32.
    explicit LeaveTracker(ProcedureFinder& finder);

    Tracking available() const noexcept { return available_; }

    /// Requests one WM_MOUSELEAVE for the next time the pointer leaves `window`.
    void request(HWND window) const;

 private:
    using Track = decltype(&TrackMouseEvent);

    Tracking available_ = Tracking::None;
    Track track_ = nullptr;
};

}  // namespace velvox
