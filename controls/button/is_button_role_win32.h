// The accessible role of a push button's window. Its name is the window's text.
#pragma once

#include <windows.h>

namespace velvox {

/// The system's side; tests write down what is asked of it.
class AccessibleRoles {
 public:
    virtual ~AccessibleRoles() = default;

    /// Tells the system that `window` is a push button. Without COM on this thread, or on a system
    /// without the service, the window keeps the role that the system guesses.
    virtual void announcePushButton(HWND window) = 0;
    virtual void withdraw(HWND window) = 0;
};

AccessibleRoles& systemRoles();

}  // namespace velvox
