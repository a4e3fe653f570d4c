#pragma once

#include <string_view>

namespace velvox {

/// Shows HTML fragments: status lines and links.
class ResultPane {
 public:
    virtual ~ResultPane() = default;

    /// Replaces the whole content and has it painted before returning, since a fetch may block
    /// the thread next. Takes any bytes; never throws.
    virtual void DocumentHTML(std::string_view html) noexcept = 0;
};

}  // namespace velvox
