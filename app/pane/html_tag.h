// Reads one HTML tag: its name and the attributes that the result pane knows.
#pragma once

#include <optional>
#include <string_view>

namespace velvox {

/// White space between words and attributes.
bool isHtmlBlank(char c);

struct HtmlTag {
    std::string_view name;
    bool closes = false;
    std::optional<std::string_view> href, face, size, colour;
};

/// Removes a tag from the front of `rest`, which starts with its "<". Nullopt, and `rest` as it
/// was, if the text ends before the tag does.
std::optional<HtmlTag> takeHtmlTag(std::string_view& rest);

}  // namespace velvox
