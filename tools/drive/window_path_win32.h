// Finding the windows of another program by a path such as
// "Form1=Velvox 1.00/XPTextBox/EDIT", "Form1/isButton=Close", "#32770/@2" or "0x10042".
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace velvox::drive {

// Finds a window by its path; null when there is none. A path is segments joined by "/": the first
// names a top-level window, each further one a window anywhere below the previous window. A segment
// is CLASS, CLASS=TEXT (the whole text), @ID (a dialog control id) or a handle in hexadecimal; the
// CLASS "*" matches any class. If several windows match, a visible one is preferred. Throws
// std::exception for a malformed path.
HWND findWindow(const std::string& path);

// All windows below a window, or all top-level windows if it is null.
std::vector<HWND> windowsBelow(HWND parent);

// Returns the whole text by WM_GETTEXT, as UTF-8. Throws if the window does not answer in time.
std::string windowText(HWND window);
std::string windowClass(HWND window);

// Left, top, width and height on the screen, in pixels.
std::string windowBounds(HWND window);

// The state of the thread that created a window: focus, capture, mode.
GUITHREADINFO threadOf(HWND window);

// Sends a message to a program that may be busy. Throws after 20 seconds without an answer.
LRESULT ask(HWND window, UINT message, WPARAM w, LPARAM l);

}  // namespace velvox::drive
