// How far a bar has scrolled a picture. Bars count in the picture's own unit, pixels at 96 dpi,
// which its grid and the read-out name too; the screen shows it at its own resolution.
#pragma once

#include <algorithm>

#include "base/twips.h"
#include "controlkit/scroll_look.h"

namespace velvox {

/// The width or the height of a picture and of what is seen of it.
struct ScrolledLength {
    int whole = 0;  ///< of the picture, pixels at 96 dpi
    int view = 0;   ///< pixels of the screen
    int dpi = designDpi;

    /// What is seen, pixels at 96 dpi.
    constexpr int shown() const { return view * designDpi / dpi; }

    /// The value at which the picture's end is seen.
    constexpr int max() const { return std::max(0, whole - shown()); }

    /// Pixels of the picture above or left of the view, never more than there are.
    constexpr int offset(int value) const {
        return std::min(scaled(value, dpi), std::max(0, scaled(whole, dpi) - view));
    }
};

}  // namespace velvox
