#pragma once

#include <windows.h>

#include <commctrl.h>

#include "base/owned_win32.h"

namespace velvox {

/// Creates a topmost tool tip owned by `owner`, to which the caller then adds tools. Returns null
/// if Windows refuses; the control then works without a tool tip.
HWND createToolTip(HWND owner, DWORD style);

/// Destroys `tip` unless Windows has already destroyed it together with its owner's top-level
/// window.
void destroyToolTip(HWND tip) noexcept;

using OwnedToolTip = Owned<HWND, &destroyToolTip>;

/// A tool record for `window`, in the size that every version of the tool tip control accepts.
TTTOOLINFOW toolRecord(HWND window, UINT flags, UINT_PTR id);

}  // namespace velvox
