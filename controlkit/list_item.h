#pragma once

#include <cstdint>
#include <string>

#include "base/picture.h"

namespace velvox {

/// A row of a list, as `clsFile` gives them.
struct tsListItem {
    std::string text;        ///< what is shown
    std::string key;         ///< what it identifies
    std::uint64_t size = 0;  ///< bytes
    PicturePtr icon;         ///< null for none
    bool selected = false;
};

}  // namespace velvox
