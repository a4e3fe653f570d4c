#pragma once

#include <windows.h>

#include <string>

#include "app/browser/document_facts.h"
#include "base/system_win32.h"

namespace velvox {

/// What the preview area shows in place of a rendered page.
struct PreviewContent {
    enum class Kind {
        Blank,
        Loading,
        NotRendered,  ///< a document on a system that renders none
        Unviewable,   ///< a document that nothing on this system can show
        Unreachable,
    };

    Kind kind = Kind::Blank;
    std::string address;
    DocumentFacts facts;

    bool operator==(const PreviewContent&) const = default;
};

/// Paints the address of a document, its type and its size.
class PreviewPanel {
 public:
    void paint(HDC dc, const RECT& bounds, const PreviewContent& content) const;

 private:
    OwnedFont font_ = createFont({});
};

}  // namespace velvox
