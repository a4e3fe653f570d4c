// The reactions of a scroll bar to the mouse, the wheel, the keyboard and its timers. This class
// has no window; it uses the window's services through ScrollHost. An event handler may change,
// disable and hide the bar, but must neither destroy the bar nor replace the handler while it runs.
#pragma once

#include <cstdint>
#include <functional>
#include <utility>

#include "base/mouse.h"
#include "controlkit/private_scroll.h"
#include "controlkit/scroll_look.h"

namespace velvox {

/// The timers that repeat a step while an arrow or the track is held.
enum class RepeatTimer { Arrow, Track };

/// Services that the bar's window provides.
class ScrollHost {
 public:
    virtual ~ScrollHost() = default;
    virtual void repaint() = 0;
    virtual void capture(bool on) = 0;
    /// Calls tick() every `milliseconds` until stopped. Starting a running timer restarts it.
    virtual void startTimer(RepeatTimer timer, int milliseconds) = 0;
    virtual void stopTimer(RepeatTimer timer) = 0;
    /// Requests one call of mouseLeave as soon as the pointer is outside the bar.
    virtual void requestLeave() = 0;
    virtual void enable(bool enabled) = 0;
};

/// A point of the bar in pixels: along it and across it, whatever its direction.
struct BarPoint {
    int along = 0;
    int across = 0;
};

/// The buttons and keys that go with a mouse message.
struct MouseState {
    MouseButton button = MouseButton::None;
    std::int16_t shift = 0;  ///< 1 Shift, 2 Control, 4 Alt
};

/// Virtual key codes of the keys that change a bar's value.
struct ScrollKeys {
    static constexpr std::int16_t pageUp = 0x21;
    static constexpr std::int16_t pageDown = 0x22;
    static constexpr std::int16_t end = 0x23;
    static constexpr std::int16_t home = 0x24;
    static constexpr std::int16_t left = 0x25;
    static constexpr std::int16_t up = 0x26;
    static constexpr std::int16_t right = 0x27;
    static constexpr std::int16_t down = 0x28;
};

class ScrollControl : public tsPrivateScroll {
 public:
    /// `host` is not owned.
    ScrollControl(Axis axis, ScrollHost& host) : tsPrivateScroll(axis), host_(host) {}

    using KeyHandler = std::function<void(std::int16_t& KeyCode, std::int16_t Shift)>;
    /// `Shift` is the sum of 1 for Shift, 2 for Control and 4 for Alt; `Control` is true while the
    /// Control key is down.
    using MouseHandler = std::function<void(MouseButton Button, std::int16_t Shift, bool Control)>;

    // All events except Change, in the order of the control's dispatch identifiers. Mouse and
    // keyboard events are raised before the bar acts on the input, but MouseUp is raised after the
    // press has ended.

    /// The handler may replace `KeyCode`: the bar acts on the new code, and 0 cancels the key. F10
    /// and keys with Alt raise the event too, but never change Value and always reach the system.
    KeyHandler KeyDown;
    std::function<void(std::int16_t& KeyAscii)> KeyPress;
    KeyHandler KeyUp;
    std::function<void()> MouseHover;  ///< the pointer has come over the bar
    std::function<void()> MouseLeave;  ///< the pointer has left, or the bar was disabled or hidden
    /// Raised for each notch while EnableWheel is true: 1 towards Min (away from the user), -1
    /// towards Max.
    std::function<void(std::int16_t Sens)> MouseWheel;
    MouseHandler MouseDown;
    MouseHandler MouseUp;
    MouseHandler MouseDblClick;  ///< replaces MouseDown for a second click, which steps as well
    MouseHandler MouseMove;
    /// Raised after the user has moved the value in any way. Unlike in a handler of Change, Value
    /// already returns the new value.
    std::function<void()> Scroll;

    /// While false, the key and mouse events (KeyDown to MouseMove in the order above) are not
    /// raised, but the bar works as before. Initially true.
    bool LaunchKeyMouseEvents() const noexcept { return launchesKeyMouseEvents_; }
    void LaunchKeyMouseEvents(bool launch) noexcept { launchesKeyMouseEvents_ = launch; }

    void InitProperties() override;

    // Called by the window. A disabled bar ignores all input.
    void resize(int length, int thickness, int dpi);
    void mouseMove(BarPoint at, MouseState state);
    void mouseDown(BarPoint at, MouseState state);
    void mouseDoubleClick(BarPoint at, MouseState state);
    void mouseUp(BarPoint at, MouseState state);
    void mouseLeave();
    void captureLost();
    void hidden();  ///< also called if the bar cannot be used, such as in a disabled container
    void tick(RepeatTimer timer);
    /// `delta` is 120 for a notch of the wheel, positive towards Min; parts of a notch add up.
    /// Returns false if the bar does not use the wheel.
    bool wheel(int delta);
    void keyDown(std::int16_t code, std::int16_t shift);
    void keyPress(std::int16_t character);
    void keyUp(std::int16_t code, std::int16_t shift);
    void focus(bool has);

    // Queries for drawing the bar.
    ScrollGeometry geometry() const;
    PartState stateOf(ScrollPart part) const;
    bool hasFocus() const noexcept { return hasFocus_; }
    int thickness() const noexcept { return thickness_; }
    int length() const noexcept { return length_; }
    int dpi() const noexcept { return dpi_; }

    /// The part that is held down, wherever the pointer is.
    ScrollPart held() const noexcept { return held_; }

 protected:
    void redraw() override { host_.repaint(); }
    void enabledChanged() override;

 private:
    template <class Handler, class... Arguments>
    void launch(const Handler& handler, Arguments&&... arguments) {
        if (launchesKeyMouseEvents_ && handler) handler(std::forward<Arguments>(arguments)...);
    }

    bool takesWheel() const { return Enabled() && EnableWheel(); }
    bool contains(BarPoint at) const;
    ScrollPart partAt(BarPoint at) const;
    ScrollPart partUnderPointer() const;
    void movePointer(BarPoint at);
    void press(BarPoint at);
    void stepHeldPart();
    void drag();
    void moveTo(FixedPoint value);
    void endPress();
    void settleHover();
    void endHover();

    ScrollHost& host_;
    bool launchesKeyMouseEvents_ = true;
    int length_ = 0;
    int thickness_ = 0;
    int dpi_ = designDpi;
    bool hasFocus_ = false;
    bool inside_ = false;  // MouseHover was raised, MouseLeave not yet
    BarPoint pointer_;     // last known position of the pointer
    int wheelRest_ = 0;

    ScrollPart held_ = ScrollPart::None;
    int timerPeriod_ = 0;
    // Drag state:
    int grabOffset_ = 0;  // distance of the pointer from the thumb's start
    int dragStartThumb_ = 0;
    int shownThumb_ = 0;
    FixedPoint dragStartValue_;
};

}  // namespace velvox
