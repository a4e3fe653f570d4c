// One row for each property of a control, for the tests that set, read, store and load them all.
#pragma once

#include <cstdint>
#include <functional>
#include <type_traits>
#include <vector>

#include "base/control.h"
#include "base/property_bag.h"

namespace velvox::testing {

template <class Owner>
struct Property {
    const char* key;
    PropertyValue value;  ///< the stored form of a value other than the default
    std::function<void(Owner&)> set;
    std::function<bool(const Owner&)> isSet;
    std::vector<ControlChange> followed;  ///< the notifications of the control's observer
};

template <class Owner, class Got, class Set, class T>
Property<Owner> property(const char* key, Got (Owner::*get)() const, void (Owner::*set)(Set),
                         T value, std::vector<ControlChange> followed = {}) {
    PropertyValue stored;
    if constexpr (std::is_same_v<T, bool> || !std::is_convertible_v<T, std::int64_t>)
        stored = value;
    else
        stored = static_cast<std::int32_t>(value);
    return {key, stored, [=](Owner& owner) { (owner.*set)(static_cast<Set>(value)); },
            [=](const Owner& owner) { return (owner.*get)() == static_cast<Set>(value); },
            followed};
}

}  // namespace velvox::testing
