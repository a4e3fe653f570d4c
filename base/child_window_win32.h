// Helpers shared by the windows of the main window's controls.
#pragma once

#include <windows.h>

#include "base/control.h"

namespace velvox {

/// A parent hands a child's WM_COMMAND notification back to the child as this message, with the
/// same parameters.
inline constexpr UINT reflectedCommand = WM_APP + 1;

/// Hands a notification to the child that sent it. True when there was one.
bool reflectCommand(LPARAM child, WPARAM wParam);

/// Has the parent paint the background of a child into the child's DC.
void paintParentBackground(HWND child, HDC dc);

/// Carries out a change of place or visibility on a window.
void followBounds(HWND window, const Control& control, ControlChange change);

}  // namespace velvox
