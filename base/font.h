#pragma once

#include <string>

namespace velvox {

/// Describes a font. The Win32 layer creates the system's font from it.
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
