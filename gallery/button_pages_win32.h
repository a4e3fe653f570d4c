// The gallery's pages of push buttons.
#pragma once

#include <memory>

#include "gallery/page_win32.h"

namespace velvox {

enum class ButtonColouring { System, Custom };

/// Every style in every state, as pictures and as live buttons.
std::unique_ptr<Page> makeStylesPage(ButtonColouring colouring);

/// All alignments of icons and captions.
std::unique_ptr<Page> makeAlignmentPage();

/// Live buttons with each kind of tool tip.
std::unique_ptr<Page> makeToolTipPage();

/// Every style in the look that it has while a form is designed.
std::unique_ptr<Page> makeDesignTimePage();

/// The main window's three buttons with their stored properties.
std::unique_ptr<Page> makeMainWindowPage();

}  // namespace velvox
