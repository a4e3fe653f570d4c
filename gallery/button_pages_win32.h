// The gallery's pages of push buttons.
#pragma once

#include <memory>

#include "gallery/page_win32.h"

namespace velvox {

enum class ButtonColouring { System, Custom };

/// Every style in every state, and a live button of each.
std::unique_ptr<Page> makeStylesPage(ButtonColouring colouring);

/// Positions of icons and captions.
std::unique_ptr<Page> makeAlignmentPage();

/// Live buttons with each kind of tool tip.
std::unique_ptr<Page> makeToolTipPage();

/// Every style as a form that is being designed shows it.
std::unique_ptr<Page> makeDesignTimePage();

/// The main window's three buttons as they are stored.
std::unique_ptr<Page> makeMainWindowPage();

}  // namespace velvox
