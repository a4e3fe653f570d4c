#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// What the header of a reply states about the document.
struct DocumentInfo {
    std::string type;                   ///< media type as the server sent it; may be empty
    std::optional<std::uint64_t> size;  ///< in bytes; nullopt if unknown

    bool operator==(const DocumentInfo&) const = default;
};

/// The parts of a reply's header that the program uses.
struct ReplyHeader {
    int status = 0;        ///< 0 if there is no status line
    std::string location;  ///< the Location field as written; empty if there is none
    DocumentInfo document;

    bool operator==(const ReplyHeader&) const = default;
};

/// Parses a reply's header: a status line and fields, with any line ends. If a field occurs several
/// times, the first one counts. A Content-Length is ignored if it is not a number or if there is a
/// Transfer-Encoding.
ReplyHeader parseReplyHeader(std::string_view header);

}  // namespace velvox
