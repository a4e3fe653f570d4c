#pragma once

#include <windows.h>

#include "app/browser/preview_content.h"
#include "base/system_win32.h"

namespace velvox {

/// Paints the address of a document, its type and its size.
class PreviewPanel {
 public:
    void paint(HDC dc, const RECT& bounds, const PreviewContent& content) const;

 private:
    OwnedFont font_ = createFont({});
};

}  // namespace velvox
