#pragma once

#include <string_view>

namespace velvox {

/// Shows HTML fragments: status lines and links.
class ResultPane {
 public:
    virtual ~ResultPane() = default;

    /// Replaces the whole content and paints it before returning, because a fetch may block the
    /// thread next. Accepts any bytes; never throws.
    virtual void DocumentHTML(std::string_view html) noexcept = 0;
};

}  // namespace velvox
