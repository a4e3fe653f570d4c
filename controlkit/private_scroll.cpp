#include "controlkit/private_scroll.h"

#include <algorithm>
#include <utility>

#include "base/runtime_failure.h"
#include "base/stored_value.h"

namespace velvox {
namespace {

FixedPoint readStored(const PropertyBag& bag, std::string_view key, FixedPoint fallback) {
    return bag.readNumber(key, fallback.toWhole());
}

PropertyValue storedValue(FixedPoint value) {
    return value.toWhole();
}

FixedPoint bounded(FixedPoint value, const ScrollSettings& settings) {
    if (settings.max <= settings.min) return settings.min;
    return std::clamp<FixedPoint>(value, settings.min, settings.max);
}

template <class Value>
void requireSign(std::string_view name, const Value& value, Sign sign) {
    if (sign == Sign::NotNegative && value < Value{})
        throw RuntimeFailure(Fault::InvalidProperty,
                             std::string(name) + " of a scroll bar cannot be negative");
}

}  // namespace

void tsPrivateScroll::notify(std::string_view name) {
    if (PropertyChanged) PropertyChanged(name);
}

template <class T>
void tsPrivateScroll::set(T ScrollSettings::*member, std::type_identity_t<T> value) {
    std::string_view name;
    eachStoredSetting(axis_, [&](std::string_view key, auto candidate, Sign sign) {
        if constexpr (std::is_same_v<decltype(candidate), T ScrollSettings::*>) {
            if (candidate != member) return;
            requireSign(key, value, sign);
            name = key;
        }
    });
    settings_.*member = value;
    notify(name);
    if (settings_.unRefreshControl) redraw();
}

template void tsPrivateScroll::set(bool ScrollSettings::*, bool);
template void tsPrivateScroll::set(std::int32_t ScrollSettings::*, std::int32_t);
template void tsPrivateScroll::set(OleColour ScrollSettings::*, OleColour);

void tsPrivateScroll::Enabled(bool enabled) {
    const bool differs = settings_.enabled != enabled;
    set(&ScrollSettings::enabled, enabled);
    if (differs) enabledChanged();
}

void tsPrivateScroll::Min(std::int32_t min) {
    set(&ScrollSettings::min, min);
    keepWithinBounds();
}
void tsPrivateScroll::Max(std::int32_t max) {
    set(&ScrollSettings::max, max);
    keepWithinBounds();
}

void tsPrivateScroll::keepWithinBounds() {
    // Value is assigned only if it is outside the bounds, because every assignment ends a
    // suppression of Change (BlockVS) that the host has set for its own assignment.
    if (bounded(settings_.value, settings_) != settings_.value) Value(settings_.value);
}

void tsPrivateScroll::Value(FixedPoint value) {
    if (blocksValue_) return;
    if (bounded(value, settings_) != settings_.value) {
        if (!suppressesNextChange_ && Change) Change(settings_.value);
        // The handler of Change may have changed Min or Max.
        settings_.value = bounded(value, settings_);
        notify("Value");
        redraw();
    }
    suppressesNextChange_ = false;
}

void tsPrivateScroll::BlockValue(bool block) {
    if (std::exchange(blocksValue_, block) != block) redraw();
}

void tsPrivateScroll::InitProperties() {
    suppressesNextChange_ = false;
    blocksValue_ = false;
    ReadProperties({});
}

void tsPrivateScroll::ReadProperties(const PropertyBag& bag) {
    const ScrollSettings defaults;
    ScrollSettings taken;
    eachStoredSetting(axis_, [&](std::string_view key, auto member, Sign) {
        taken.*member = readStored(bag, key, defaults.*member);
    });
    eachStoredSetting(axis_, [&](std::string_view key, auto member, Sign sign) {
        requireSign(key, taken.*member, sign);
    });
    taken.value = bounded(taken.value, taken);
    const bool enabledDiffers = settings_.enabled != taken.enabled;
    settings_ = taken;
    if (enabledDiffers) enabledChanged();
    redraw();
}

void tsPrivateScroll::WriteProperties(PropertyBag& bag) const {
    const ScrollSettings defaults;
    eachStoredSetting(axis_, [&](std::string_view key, auto member, Sign) {
        bag.write(key, storedValue(settings_.*member), storedValue(defaults.*member));
    });
}

}  // namespace velvox
