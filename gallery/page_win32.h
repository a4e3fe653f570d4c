// One page of the gallery.
#pragma once

#include <windows.h>

#include <memory>
#include <string_view>
#include <vector>

namespace velvox {

/// The size of every page, pixels of a 96 dpi screen.
inline constexpr int pageWidth = 800;
inline constexpr int pageHeight = 460;

class Page {
 public:
    virtual ~Page() = default;

    virtual std::string_view title() const = 0;

    /// Creates the page in the client area of `parent`, whose size never changes. The page's
    /// windows are children of `parent` and are destroyed with it at the latest.
    virtual void create(HWND parent) = 0;
};

/// All pages, in the order of their numbers.
std::vector<std::unique_ptr<Page>> galleryPages();

}  // namespace velvox
