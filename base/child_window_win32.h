// Helpers for the child windows of controls.
#pragma once

#include <windows.h>

#include "base/control.h"

namespace velvox {

/// Message with which a parent returns a WM_COMMAND notification to the child that sent it, with
/// the same parameters.
inline constexpr UINT reflectedCommand = WM_APP + 1;

/// Sends `reflectedCommand` to `child`, the lParam of WM_COMMAND. Returns false if `child` is 0,
/// which means that a menu or an accelerator sent the command.
bool reflectCommand(LPARAM child, WPARAM wParam);

/// Makes the parent paint its background into `dc`, the DC of `child`.
void paintParentBackground(HWND child, HDC dc);

/// Applies a change of the control's bounds or visibility to its window; ignores other changes.
void followBounds(HWND window, const Control& control, ControlChange change);

}  // namespace velvox
