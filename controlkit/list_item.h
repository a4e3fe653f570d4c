#pragma once

#include <cstdint>
#include <string>

#include "base/picture.h"

namespace velvox {

/// An item of a list, such as the lists of `clsFile`.
struct tsListItem {
    std::string text;        ///< the text to show
    std::string key;         ///< identifies the item
    std::uint64_t size = 0;  ///< bytes
    PicturePtr icon;         ///< null for none
    bool selected = false;
};

}  // namespace velvox
