// Draws a scroll bar of either direction onto a surface.
#pragma once

#include "controlkit/scroll_control.h"
#include "controlkit/virtual_dc_win32.h"

namespace velvox {

/// `surface` must have the bar's size.
void paintScrollBar(clsVirtualDC& surface, const ScrollControl& bar);

}  // namespace velvox
