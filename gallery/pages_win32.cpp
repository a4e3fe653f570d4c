#include "gallery/button_pages_win32.h"
#include "gallery/files_page_win32.h"
#include "gallery/page_win32.h"
#include "gallery/scroll_page_win32.h"
#include "gallery/surface_page_win32.h"
#include "gallery/text_box_page_win32.h"

namespace velvox {

std::vector<std::unique_ptr<Page>> galleryPages() {
    std::vector<std::unique_ptr<Page>> pages;
    pages.push_back(makeStylesPage(ButtonColouring::System));
    pages.push_back(makeStylesPage(ButtonColouring::Custom));
    pages.push_back(makeAlignmentPage());
    pages.push_back(makeToolTipPage());
    pages.push_back(makeDesignTimePage());
    pages.push_back(makeMainWindowPage());
    pages.push_back(std::make_unique<TextBoxPage>());
    pages.push_back(std::make_unique<SurfacePage>());
    pages.push_back(std::make_unique<ScrollPage>());
    pages.push_back(std::make_unique<FilesPage>());
    return pages;
}

}  // namespace velvox
