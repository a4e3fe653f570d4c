// Names and roles of windows for screen readers, where a window's own text and class do not say
// them.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

namespace velvox {

constexpr LONG ownRole = 0;  ///< the one that the window's class has

/// Sets a window's name and role for screen readers, for the rest of its life. An empty name leaves
/// the window's text as its name, or the name set before; `role` is a ROLE_SYSTEM_... number.
/// Without the system's service, or on a thread without COM, screen readers keep to the window's
/// text and class.
void setAccessibleName(HWND window, std::wstring name, LONG role = ownRole);

}  // namespace velvox
