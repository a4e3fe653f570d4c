#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// What a reply states about its document.
struct DocumentInfo {
    std::string type;                   ///< media type as the server named it; may be empty
    std::optional<std::uint64_t> size;  ///< bytes

    bool operator==(const DocumentInfo&) const = default;
};

/// The header of a reply, as far as it is used here.
struct ReplyHeader {
    int status = 0;        ///< 0 without a status line
    std::string location;  ///< as written; empty without one
    DocumentInfo document;

    bool operator==(const ReplyHeader&) const = default;
};

/// Parses a reply's header: a status line and fields, with any line ends. The first of
/// several fields of one name counts. A Content-Length beside a Transfer-Encoding is ignored,
/// and so is one that is not a number.
ReplyHeader parseReplyHeader(std::string_view header);

}  // namespace velvox
