#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/net/reply_header.h"

namespace velvox {

/// What the preview area shows instead of a rendered page.
struct PreviewContent {
    enum class Kind {
        Blank,
        NoPreview,  ///< the run has not navigated
        Loading,
        NotRendered,  ///< a page that could be rendered, but no view shows it
        Unviewable,   ///< a document of a type that cannot be rendered
        Unreachable,
    };

    Kind kind = Kind::Blank;
    std::string address = {};
    DocumentInfo document = {};
    std::string reason = {};  ///< why the address could not be loaded

    bool operator==(const PreviewContent&) const = default;
};

/// Whether an HTML engine can render documents of a media type: pages, texts and pictures.
bool isRenderable(const std::string& type);

/// A text such as "1,234 bytes"; empty for an unknown size.
std::string sizeText(const std::optional<std::uint64_t>& bytes);

}  // namespace velvox
