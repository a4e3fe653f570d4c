// Windows of the system's tool tip control.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "base/owned_win32.h"

namespace velvox {

/// A top-most tool tip of `owner` without a tool, or null where the system refuses: a control does
/// without its tip then.
HWND createToolTip(HWND owner, DWORD style);

/// Also for a tip that the system has already destroyed with its owner's top-level window.
void destroyToolTip(HWND tip) noexcept;

using OwnedToolTip = Owned<HWND, &destroyToolTip>;

/// The record of a tool of `window`, in the size that every version of the control accepts.
TTTOOLINFOW toolRecord(HWND window, UINT flags, UINT_PTR id);

}  // namespace velvox
