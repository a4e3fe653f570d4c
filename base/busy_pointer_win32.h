#pragma once

#include <windows.h>

namespace velvox {

/// While one lives, the busy pointer is shown over every window of the program. For the thread of
/// the user interface.
class BusyPointer {
 public:
    BusyPointer() noexcept;
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer();

    /// Shows it where the pointer is over a window of the program.
    void show() const noexcept;

    /// Handles WM_SETCURSOR while one lives; false for any other message.
    static bool onMessage(UINT message) noexcept;
};

}  // namespace velvox
