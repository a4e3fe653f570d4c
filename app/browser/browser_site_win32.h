#pragma once

#include "base/com_win32.h"

namespace velvox {

/// Creates the container object of the system's web browser control for the window that embeds the
/// control. The control may fill the window, gets no menus or tool bars, and must not install
/// anything.
ComPtr<IOleClientSite> createBrowserSite(HWND window);

}  // namespace velvox
