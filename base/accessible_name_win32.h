// Gives windows names and roles for screen readers where a window's text and class are not enough.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

namespace velvox {

constexpr LONG ownRole = 0;  ///< the role that belongs to the window's class

/// Sets the name and role that screen readers use for the window of a Window object until it is
/// destroyed. An empty `name` keeps the name set before, or else the window's text. `role` is a
/// ROLE_SYSTEM_... number or `ownRole`. Without IAccPropServices, or on a thread without COM,
/// screen readers use the window's text and class.
void setAccessibleName(HWND window, std::wstring name, LONG role = ownRole);

/// Called for each message of the window of a Window object, before the object handles it.
void onAccessibilityMessage(HWND window, UINT message) noexcept;

}  // namespace velvox
