// The stored settings of a scroll bar with their keys and defaults, in one table for both
// directions.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/colour.h"
#include "controlkit/fixed_point.h"
#include "controlkit/scroll_geometry.h"

namespace velvox {

struct ScrollSettings {
    OleColour arrowColor = rgb(255, 255, 255);
    OleColour backColor = rgb(255, 255, 255);
    OleColour borderColor = rgb(128, 128, 255);
    bool enabled = true;
    bool enableWheel = true;
    OleColour frontColor = rgb(191, 208, 240);
    std::int32_t largeChange = 10;
    std::int32_t max = 100;
    std::int32_t min = 0;
    std::int32_t arrowLength = 10;  ///< along the bar, pixels of a 96 dpi screen
    std::int32_t smallChange = 1;
    FixedPoint value = 50;
    std::int32_t wheelChange = 3;
    OleColour mouseHoverColor = rgb(255, 255, 255);
    OleColour downColor = rgb(141, 158, 190);
    std::int32_t mouseInterval = 100;  ///< milliseconds
    OleColour largeChangeColor = rgb(141, 158, 190);
    bool unRefreshControl = true;
};

/// The key of the arrow length, the only key that depends on the direction.
constexpr std::string_view arrowLengthKey(Axis axis) {
    return axis == Axis::Vertical ? "ScrollHeight" : "ScrollWidth";
}

enum class Sign { Any, NotNegative };

/// Calls visit(key, member, sign) for each stored setting, in the order of storage. `sign` is
/// NotNegative if a negative value is invalid.
template <class Visit>
void eachStoredSetting(Axis axis, Visit visitSigned) {
    const auto visit = [&](std::string_view key, auto member, Sign sign = Sign::Any) {
        visitSigned(key, member, sign);
    };
    using S = ScrollSettings;
    visit("ArrowColor", &S::arrowColor);
    visit("BackColor", &S::backColor);
    visit("BorderColor", &S::borderColor);
    visit("Enabled", &S::enabled);
    visit("EnableWheel", &S::enableWheel);
    visit("FrontColor", &S::frontColor);
    visit("LargeChange", &S::largeChange, Sign::NotNegative);
    visit("Max", &S::max);
    visit("Min", &S::min);
    visit(arrowLengthKey(axis), &S::arrowLength, Sign::NotNegative);
    visit("SmallChange", &S::smallChange, Sign::NotNegative);
    visit("Value", &S::value);
    visit("WheelChange", &S::wheelChange, Sign::NotNegative);
    visit("MouseHoverColor", &S::mouseHoverColor);
    visit("DownColor", &S::downColor);
    visit("MouseInterval", &S::mouseInterval, Sign::NotNegative);
    visit("LargeChangeColor", &S::largeChangeColor);
    visit("UnRefreshControl", &S::unRefreshControl);
}

}  // namespace velvox
