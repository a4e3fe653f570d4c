#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velvox {

/// What is known of a document that is not rendered.
struct DocumentFacts {
    std::string type;                   ///< its media type as the server named it; may be empty
    std::optional<std::uint64_t> size;  ///< bytes

    bool operator==(const DocumentFacts&) const = default;
};

/// The facts that a reply's header tells: Content-Type without its parameters, Content-Length.
DocumentFacts factsOfHeader(std::string_view header);

/// "1,234 bytes", or "" for an unknown size.
std::string sizeText(const std::optional<std::uint64_t>& bytes);

}  // namespace velvox
