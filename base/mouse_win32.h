#pragma once

#include <windows.h>

#include "base/mouse.h"

namespace velvox {

/// The held buttons from the MK_ flags of a mouse message, combined by bitwise or.
inline MouseButton heldButtons(WPARAM mouseFlags) {
    const auto held = [&](WPARAM flag, MouseButton button) {
        return mouseFlags & flag ? static_cast<int>(button) : 0;
    };
    return static_cast<MouseButton>(held(MK_LBUTTON, MouseButton::Left) |
                                    held(MK_RBUTTON, MouseButton::Right) |
                                    held(MK_MBUTTON, MouseButton::Middle));
}

}  // namespace velvox
