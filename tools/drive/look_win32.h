#pragma once

#include <windows.h>

#include <string>

namespace velvox::drive {

/// The state of a main window and everything in it, in one piece and without a message to it, so
/// that a busy window is seen as well. A line for each fact, the first word says which:
///
///     main VISIBLE ENABLED ICONIC LEFT TOP WIDTH HEIGHT
///     mode MENU MOVING LIST CAPTURE   (a menu is open, a move by keys, a drop-down list, ...)
///     focus ID PARENT-ID              (0 0 without a focus)
///     box TITLE                       (a message box of the program; none without it)
///     control ID VISIBLE ENABLED LEFT TOP WIDTH HEIGHT
std::string look(HWND main);

}  // namespace velvox::drive
