// The values and colours of a scroll bar, without a window.
#pragma once

#include <functional>
#include <string_view>
#include <type_traits>

#include "base/property_bag.h"
#include "controlkit/scroll_settings.h"

namespace velvox {

/// Every setter stores its value, notifies the host under the property's name and redraws. A
/// negative change, length or interval throws InvalidProperty and alters nothing.
class tsPrivateScroll {
 public:
    explicit tsPrivateScroll(Axis axis = Axis::Vertical) : axis_(axis) {}
    tsPrivateScroll(const tsPrivateScroll&) = delete;
    tsPrivateScroll& operator=(const tsPrivateScroll&) = delete;
    virtual ~tsPrivateScroll() = default;

    Axis axis() const noexcept { return axis_; }

    OleColour BackColor() const noexcept { return settings_.backColor; }  ///< the track
    void BackColor(OleColour colour) { set(&ScrollSettings::backColor, colour); }
    OleColour BorderColor() const noexcept { return settings_.borderColor; }  ///< the outlines
    void BorderColor(OleColour colour) { set(&ScrollSettings::borderColor, colour); }
    OleColour ArrowColor() const noexcept { return settings_.arrowColor; }  ///< the arrow glyphs
    void ArrowColor(OleColour colour) { set(&ScrollSettings::arrowColor, colour); }
    OleColour FrontColor() const noexcept { return settings_.frontColor; }  ///< thumb and arrows
    void FrontColor(OleColour colour) { set(&ScrollSettings::frontColor, colour); }
    OleColour DownColor() const noexcept { return settings_.downColor; }  ///< a pressed part
    void DownColor(OleColour colour) { set(&ScrollSettings::downColor, colour); }
    /// A thumb or an arrow under the mouse.
    OleColour MouseHoverColor() const noexcept { return settings_.mouseHoverColor; }
    void MouseHoverColor(OleColour colour) { set(&ScrollSettings::mouseHoverColor, colour); }
    /// The piece of the track that is held down for a large change.
    OleColour LargeChangeColor() const noexcept { return settings_.largeChangeColor; }
    void LargeChangeColor(OleColour colour) { set(&ScrollSettings::largeChangeColor, colour); }

    bool Enabled() const noexcept { return settings_.enabled; }
    void Enabled(bool enabled);
    bool EnableWheel() const noexcept { return settings_.enableWheel; }
    void EnableWheel(bool enabled) { set(&ScrollSettings::enableWheel, enabled); }

    /// The value stays within Min and Max. A Max below Min leaves nothing to scroll and holds
    /// the value at Min. A new bound takes a value outside along, by the rule of `Value`.
    std::int32_t Min() const noexcept { return settings_.min; }
    void Min(std::int32_t min);
    std::int32_t Max() const noexcept { return settings_.max; }
    void Max(std::int32_t max);

    /// Assigning does nothing while the value is blocked. A value that differs (after it has
    /// been brought within the bounds) first raises Change, unless that is suppressed, and is
    /// then stored and drawn; so a handler of Change still reads the previous value, and one
    /// that assigns the value itself is called again before anything is stored: it must set
    /// BlockVS first. Every assignment that is not blocked ends the suppression.
    FixedPoint Value() const noexcept { return settings_.value; }
    void Value(FixedPoint value);

    /// Steps of an arrow, of the track and of one notch of the wheel.
    std::int32_t SmallChange() const noexcept { return settings_.smallChange; }
    void SmallChange(std::int32_t change) { set(&ScrollSettings::smallChange, change); }
    std::int32_t LargeChange() const noexcept { return settings_.largeChange; }
    void LargeChange(std::int32_t change) { set(&ScrollSettings::largeChange, change); }
    std::int32_t WheelChange() const noexcept { return settings_.wheelChange; }
    void WheelChange(std::int32_t change) { set(&ScrollSettings::wheelChange, change); }

    /// Milliseconds between two steps while an arrow or the track is held; 0 repeats nothing.
    std::int32_t MouseInterval() const noexcept { return settings_.mouseInterval; }
    void MouseInterval(std::int32_t milliseconds) {
        set(&ScrollSettings::mouseInterval, milliseconds);
    }

    /// While true, whatever the name suggests, setting any property redraws; while false a new
    /// colour, length, bound or state waits for the next redraw or Refresh. A new Value is always
    /// drawn.
    bool UnRefreshControl() const noexcept { return settings_.unRefreshControl; }
    void UnRefreshControl(bool redraws) { set(&ScrollSettings::unRefreshControl, redraws); }

    /// Suppresses Change for the next assignment of Value alone, also for one that alters
    /// nothing. For a host that moves the bar after its own content.
    bool BlockVS() const noexcept { return suppressesNextChange_; }
    void BlockVS(bool suppress) noexcept { suppressesNextChange_ = suppress; }

    /// While true, Value cannot be altered, neither by assignment nor by the user: a thumb that is
    /// being dragged shows the value again.
    bool BlockValue() const noexcept { return blocksValue_; }
    void BlockValue(bool block);

    /// Gives a new instance its defaults. No event is raised.
    virtual void InitProperties();

    /// Takes the stored settings over, defaults for missing keys. No event is raised. Throws
    /// TypeMismatch or InvalidProperty and alters nothing for a setting that cannot be taken.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// `Value` refers to the stored field, which still holds the previous value.
    std::function<void(const FixedPoint& Value)> Change;

    /// Notifies the host which property was set.
    std::function<void(std::string_view name)> PropertyChanged;

 protected:
    std::int32_t arrowLength() const noexcept { return settings_.arrowLength; }
    void arrowLength(std::int32_t pixels) { set(&ScrollSettings::arrowLength, pixels); }

    /// For the class that has a window.
    virtual void redraw() {}
    virtual void enabledChanged() {}

 private:
    template <class T>
    void set(T ScrollSettings::*member, std::type_identity_t<T> value);
    void notify(std::string_view name);
    void keepWithinBounds();

    Axis axis_;
    ScrollSettings settings_;
    bool suppressesNextChange_ = false;
    bool blocksValue_ = false;
};

}  // namespace velvox
