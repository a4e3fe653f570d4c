#pragma once

#include <string>

namespace velvox {

/// A font as controls store it; the platform font is made from it where text is drawn.
struct Font {
    std::string name = "Tahoma";
    double points = 8.25;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;

    bool operator==(const Font&) const = default;
};

}  // namespace velvox
