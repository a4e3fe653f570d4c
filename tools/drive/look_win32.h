#pragma once

#include <windows.h>

#include <string>

namespace velvox::drive {

/// The state of a main window and everything in it at one moment. No message is sent, so this works
/// for a busy window as well. Each line has one fact, which its first word names:
///
///     main VISIBLE ENABLED ICONIC LEFT TOP WIDTH HEIGHT
///     mode MENU MOVING LIST CAPTURE   (open menu, window move, drop-down list, mouse capture)
///     focus ID PARENT-ID              (0 0 without a focus)
///     box TITLE                       (a line for each message box of the program)
///     control ID VISIBLE ENABLED LEFT TOP WIDTH HEIGHT
std::string look(HWND main);

}  // namespace velvox::drive
