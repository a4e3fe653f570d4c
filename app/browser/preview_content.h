#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/net/reply_header.h"

namespace velvox {

/// What the preview area shows in place of a rendered page.
struct PreviewContent {
    enum class Kind {
        Blank,
        NoPreview,  ///< nothing was navigated to in a run
        Loading,
        NotRendered,  ///< a page that no view shows
        Unviewable,   ///< a document of a type that no preview shows
        Unreachable,
    };

    Kind kind = Kind::Blank;
    std::string address = {};
    DocumentInfo document = {};
    std::string reason = {};  ///< why an address is unreachable

    bool operator==(const PreviewContent&) const = default;
};

/// Whether an HTML engine shows documents of a media type: pages, texts and pictures.
bool isRenderable(const std::string& type);

/// "1,234 bytes", or "" for an unknown size.
std::string sizeText(const std::optional<std::uint64_t>& bytes);

}  // namespace velvox
