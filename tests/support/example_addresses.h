// The example address of each site in the main window's list, in the order of the list.
#pragma once

#include <string>
#include <vector>

#include "base/join.h"
#include "catchers/sites.h"

namespace velvox {

inline const std::vector<std::string> exampleAddresses = [] {
    std::vector<std::string> all;
    for (const Site& site : sites)
        if (site.catcher) all.push_back(join({site.server, site.examplePath}));
    return all;
}();

}  // namespace velvox
