// The values and colours of a scroll bar, without a window.
#pragma once

#include <functional>
#include <string_view>
#include <type_traits>

#include "base/property_bag.h"
#include "controlkit/scroll_settings.h"

namespace velvox {

/// Every setter stores its value, raises PropertyChanged with the property's name and redraws. A
/// negative step, length or interval throws InvalidProperty and changes nothing.
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
    /// The colour of a thumb or an arrow under the mouse.
    OleColour MouseHoverColor() const noexcept { return settings_.mouseHoverColor; }
    void MouseHoverColor(OleColour colour) { set(&ScrollSettings::mouseHoverColor, colour); }
    /// The colour of the part of the track that is pressed for a large change.
    OleColour LargeChangeColor() const noexcept { return settings_.largeChangeColor; }
    void LargeChangeColor(OleColour colour) { set(&ScrollSettings::largeChangeColor, colour); }

    bool Enabled() const noexcept { return settings_.enabled; }
    void Enabled(bool enabled);
    bool EnableWheel() const noexcept { return settings_.enableWheel; }
    void EnableWheel(bool enabled) { set(&ScrollSettings::enableWheel, enabled); }

    /// Value stays within Min and Max. If Max is not above Min, there is nothing to scroll and
    /// Value is Min. A new bound that excludes Value assigns the bound to Value.
    std::int32_t Min() const noexcept { return settings_.min; }
    void Min(std::int32_t min);
    std::int32_t Max() const noexcept { return settings_.max; }
    void Max(std::int32_t max);

    /// While BlockValue is true, an assignment does nothing. Otherwise the assigned value is
    /// clamped to the bounds. If it then differs from the stored value, Change is raised first,
    /// unless BlockVS suppresses it, and the new value is stored and drawn afterwards. A handler of
    /// Change therefore still reads the previous value. If the handler itself assigns Value, it is
    /// called again before anything is stored, so it must set BlockVS first. Every assignment that
    /// is not blocked ends the suppression.
    FixedPoint Value() const noexcept { return settings_.value; }
    void Value(FixedPoint value);

    /// Steps for an arrow (SmallChange), for the track (LargeChange) and for one notch of the wheel
    /// (WheelChange).
    std::int32_t SmallChange() const noexcept { return settings_.smallChange; }
    void SmallChange(std::int32_t change) { set(&ScrollSettings::smallChange, change); }
    std::int32_t LargeChange() const noexcept { return settings_.largeChange; }
    void LargeChange(std::int32_t change) { set(&ScrollSettings::largeChange, change); }
    std::int32_t WheelChange() const noexcept { return settings_.wheelChange; }
    void WheelChange(std::int32_t change) { set(&ScrollSettings::wheelChange, change); }

    /// Milliseconds between two steps while an arrow or the track is held; 0 disables repeating.
    std::int32_t MouseInterval() const noexcept { return settings_.mouseInterval; }
    void MouseInterval(std::int32_t milliseconds) {
        set(&ScrollSettings::mouseInterval, milliseconds);
    }

    /// Despite the name, true redraws the bar whenever a property is set. While false, a new
    /// colour, length, bound or state is drawn at the next redraw or Refresh. A new Value is always
    /// drawn.
    bool UnRefreshControl() const noexcept { return settings_.unRefreshControl; }
    void UnRefreshControl(bool redraws) { set(&ScrollSettings::unRefreshControl, redraws); }

    /// Suppresses Change for the next assignment of Value only, even if that assignment changes
    /// nothing. A host sets it before it adjusts the bar to the position of its content.
    bool BlockVS() const noexcept { return suppressesNextChange_; }
    void BlockVS(bool suppress) noexcept { suppressesNextChange_ = suppress; }

    /// While true, neither assignments nor the user can change Value, and a thumb that is being
    /// dragged is drawn at Value.
    bool BlockValue() const noexcept { return blocksValue_; }
    void BlockValue(bool block);

    /// Sets the defaults of a new instance. Raises no event.
    virtual void InitProperties();

    /// Replaces all settings by the stored ones; missing keys get defaults. Raises no event. If a
    /// setting is invalid, throws TypeMismatch or InvalidProperty and changes nothing.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    /// Raised before Value changes: the argument refers to the stored field, which still has the
    /// previous value.
    std::function<void(const FixedPoint& Value)> Change;

    /// Notifies the host that the property of this name has been set.
    std::function<void(std::string_view name)> PropertyChanged;

 protected:
    std::int32_t arrowLength() const noexcept { return settings_.arrowLength; }
    void arrowLength(std::int32_t pixels) { set(&ScrollSettings::arrowLength, pixels); }

    /// Overridden by the class that has a window.
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
