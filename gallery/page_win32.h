// A page of the gallery.
#pragma once

#include <windows.h>

#include <string_view>

namespace velvox {

class Page {
 public:
    virtual ~Page() = default;
    virtual std::string_view title() const = 0;

    /// Fills the client area of `parent` with the page's windows.
    virtual void create(HWND parent) = 0;
};

}  // namespace velvox
