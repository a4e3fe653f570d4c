// Parses one HTML tag: its name and the attributes that the result pane uses.
#pragma once

#include <optional>
#include <string_view>

namespace velvox {

/// Whether HTML treats `c` as white space.
bool isHtmlBlank(char c);

struct HtmlTag {
    std::string_view name;
    bool closes = false;
    std::optional<std::string_view> href, face, size, colour;
};

/// Removes a tag from the front of `rest`, which must start with "<". If the text ends before the
/// tag does, returns nullopt and leaves `rest` unchanged.
std::optional<HtmlTag> takeHtmlTag(std::string_view& rest);

}  // namespace velvox
