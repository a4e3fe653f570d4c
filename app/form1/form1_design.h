// What the main window is designed with: the one table of places, captions, fonts, timers and
// stored properties.
#pragma once

#include <span>
#include <string_view>

#include "app/form1/controls.h"
#include "base/control.h"
#include "base/property_bag.h"

namespace velvox {

struct ControlDesign {
    std::string_view name;
    Place place;  ///< twips, in its container
    std::string_view caption = {};
    bool visible = true;
    OleColour foreColor = systemColour(ButtonTextColour);
    Font font = {};
};

struct TimerDesign {
    std::string_view name;
    unsigned interval;  ///< milliseconds
    bool enabled;
};

/// Throws InvalidCall for a name that is not on the form.
const ControlDesign& designOf(std::string_view name);

/// The stored properties of a user control of the form.
const PropertyBag& storedProperties(std::string_view name);

extern const std::span<const TimerDesign> timerDesigns;
extern const std::span<const Line> lineDesigns;

}  // namespace velvox
