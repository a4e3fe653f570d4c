#pragma once

#include "base/com_win32.h"

namespace velvox {

/// What the system's web browser control asks of the window that embeds it: the control may fill
/// the window, has no menus and tool bars, and installs nothing.
ComPtr<IOleClientSite> createBrowserSite(HWND window);

}  // namespace velvox
