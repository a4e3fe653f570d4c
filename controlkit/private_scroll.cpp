#include "controlkit/private_scroll.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "base/runtime_failure.h"

namespace velvox {
namespace {

bool read(const PropertyBag& bag, std::string_view key, bool fallback) {
    return bag.readBool(key, fallback);
}
std::int32_t read(const PropertyBag& bag, std::string_view key, std::int32_t fallback) {
    return bag.readNumber(key, fallback);
}
OleColour read(const PropertyBag& bag, std::string_view key, OleColour fallback) {
    return std::bit_cast<OleColour>(bag.readNumber(key, std::bit_cast<std::int32_t>(fallback)));
}
FixedPoint read(const PropertyBag& bag, std::string_view key, FixedPoint fallback) {
    return bag.readNumber(key, fallback.toWhole());
}

bool stored(bool flag) {
    return flag;
}
std::int32_t stored(std::int32_t number) {
    return number;
}
std::int32_t stored(OleColour colour) {
    return std::bit_cast<std::int32_t>(colour);
}
std::int32_t stored(FixedPoint value) {
    return value.toWhole();
}

FixedPoint bounded(FixedPoint value, const ScrollSettings& settings) {
    if (settings.max <= settings.min) return settings.min;
    return std::clamp<FixedPoint>(value, settings.min, settings.max);
}

void requireNotNegative(std::string_view name, std::int32_t value) {
    if (value < 0)
        throw RuntimeFailure(Fault::InvalidProperty,
                             std::string(name) + " of a scroll bar cannot be negative");
}

void requireValid(Axis axis, const ScrollSettings& settings) {
    requireNotNegative("LargeChange", settings.largeChange);
    requireNotNegative("SmallChange", settings.smallChange);
    requireNotNegative("WheelChange", settings.wheelChange);
    requireNotNegative("MouseInterval", settings.mouseInterval);
    requireNotNegative(arrowLengthKey(axis), settings.arrowLength);
}

}  // namespace

void tsPrivateScroll::notify(std::string_view name) {
    if (PropertyChanged) PropertyChanged(name);
}

template <class T>
void tsPrivateScroll::set(std::string_view name, T ScrollSettings::*member, T value) {
    settings_.*member = value;
    notify(name);
    if (settings_.unRefreshControl) redraw();
}

void tsPrivateScroll::setNotNegative(std::string_view name, std::int32_t ScrollSettings::*member,
                                     std::int32_t value) {
    requireNotNegative(name, value);
    set(name, member, value);
}

void tsPrivateScroll::BackColor(OleColour colour) {
    set("BackColor", &ScrollSettings::backColor, colour);
}
void tsPrivateScroll::BorderColor(OleColour colour) {
    set("BorderColor", &ScrollSettings::borderColor, colour);
}
void tsPrivateScroll::ArrowColor(OleColour colour) {
    set("ArrowColor", &ScrollSettings::arrowColor, colour);
}
void tsPrivateScroll::FrontColor(OleColour colour) {
    set("FrontColor", &ScrollSettings::frontColor, colour);
}
void tsPrivateScroll::DownColor(OleColour colour) {
    set("DownColor", &ScrollSettings::downColor, colour);
}
void tsPrivateScroll::MouseHoverColor(OleColour colour) {
    set("MouseHoverColor", &ScrollSettings::mouseHoverColor, colour);
}
void tsPrivateScroll::LargeChangeColor(OleColour colour) {
    set("LargeChangeColor", &ScrollSettings::largeChangeColor, colour);
}

void tsPrivateScroll::Enabled(bool enabled) {
    const bool differs = settings_.enabled != enabled;
    set("Enabled", &ScrollSettings::enabled, enabled);
    if (differs) enabledChanged();
}
void tsPrivateScroll::EnableWheel(bool enabled) {
    set("EnableWheel", &ScrollSettings::enableWheel, enabled);
}

void tsPrivateScroll::Min(std::int32_t min) {
    set("Min", &ScrollSettings::min, min);
    keepWithinBounds();
}
void tsPrivateScroll::Max(std::int32_t max) {
    set("Max", &ScrollSettings::max, max);
    keepWithinBounds();
}

void tsPrivateScroll::keepWithinBounds() {
    // Only where it is needed: an assignment would end a suppression meant for the host's own.
    if (bounded(settings_.value, settings_) != settings_.value) Value(settings_.value);
}

void tsPrivateScroll::Value(FixedPoint value) {
    if (blocksValue_) return;
    if (bounded(value, settings_) != settings_.value) {
        if (!suppressesNextChange_ && Change) Change(settings_.value);
        // A handler may have moved the bounds.
        settings_.value = bounded(value, settings_);
        notify("Value");
        redraw();
    }
    suppressesNextChange_ = false;
}

void tsPrivateScroll::BlockValue(bool block) {
    if (std::exchange(blocksValue_, block) != block) redraw();
}

void tsPrivateScroll::SmallChange(std::int32_t change) {
    setNotNegative("SmallChange", &ScrollSettings::smallChange, change);
}
void tsPrivateScroll::LargeChange(std::int32_t change) {
    setNotNegative("LargeChange", &ScrollSettings::largeChange, change);
}
void tsPrivateScroll::WheelChange(std::int32_t change) {
    setNotNegative("WheelChange", &ScrollSettings::wheelChange, change);
}
void tsPrivateScroll::MouseInterval(std::int32_t milliseconds) {
    setNotNegative("MouseInterval", &ScrollSettings::mouseInterval, milliseconds);
}
void tsPrivateScroll::arrowLength(std::int32_t pixels) {
    setNotNegative(arrowLengthKey(axis_), &ScrollSettings::arrowLength, pixels);
}
void tsPrivateScroll::UnRefreshControl(bool redraws) {
    set("UnRefreshControl", &ScrollSettings::unRefreshControl, redraws);
}

void tsPrivateScroll::InitProperties() {
    suppressesNextChange_ = false;
    blocksValue_ = false;
    ReadProperties({});
}

void tsPrivateScroll::ReadProperties(const PropertyBag& bag) {
    const ScrollSettings defaults;
    ScrollSettings taken;
    eachStoredSetting(axis_, [&](std::string_view key, auto member) {
        taken.*member = read(bag, key, defaults.*member);
    });
    requireValid(axis_, taken);
    taken.value = bounded(taken.value, taken);
    const bool enabledDiffers = settings_.enabled != taken.enabled;
    settings_ = taken;
    if (enabledDiffers) enabledChanged();
    redraw();
}

void tsPrivateScroll::WriteProperties(PropertyBag& bag) const {
    const ScrollSettings defaults;
    eachStoredSetting(axis_, [&](std::string_view key, auto member) {
        bag.write(key, stored(settings_.*member), stored(defaults.*member));
    });
}

}  // namespace velvox
