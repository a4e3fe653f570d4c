#pragma once

#include <windows.h>

namespace velvox {

/// While an object of this class exists, every window of the program shows the busy pointer. For
/// use on the user interface thread only.
class BusyPointer {
 public:
    BusyPointer() noexcept;
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer();

    /// Shows the busy pointer now if the mouse is over a window of this thread.
    void show() const noexcept;

    /// Handles WM_SETCURSOR while a BusyPointer exists. Returns false if the message is not
    /// handled.
    static bool onMessage(UINT message) noexcept;
};

}  // namespace velvox
