#pragma once

#include <windows.h>

#include "app/browser/preview_content.h"
#include "base/system_win32.h"

namespace velvox {

/// Paints the preview area while no page is rendered: address, type and size of a document, or a
/// note.
class PreviewPanel {
 public:
    void paint(HDC dc, const RECT& bounds, const PreviewContent& content) const;

 private:
    OwnedFont font_ = createFont({});
};

}  // namespace velvox
