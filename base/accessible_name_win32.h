// Names and roles of windows for screen readers, where a window's own text and class do not say
// them.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

#include "base/com_win32.h"

namespace velvox {

/// A window's name and role for screen readers, for the length of this object's life. Without the
/// service, or on a thread without COM, screen readers keep to the window's text and class.
class AccessibleName {
 public:
    static constexpr LONG ownRole = 0;  ///< the one that the window's class has

    AccessibleName() noexcept = default;

    /// An empty name leaves the window's text as its name. `role` is a ROLE_SYSTEM_... number.
    AccessibleName(HWND window, const std::wstring& name, LONG role = ownRole) noexcept;
    AccessibleName(AccessibleName&&) noexcept = default;
    AccessibleName& operator=(AccessibleName&& other) noexcept;
    ~AccessibleName();

 private:
    void clear() noexcept;

    ComPtr<IAccPropServices> service_;
    HWND window_ = nullptr;
};

}  // namespace velvox
