#pragma once

#include <bitset>
#include <cstdint>
#include <optional>

#include "app/form1/desktop.h"

namespace velvox {

struct InputEvent {
    enum class Kind : std::int8_t {
        KeyDown,
        KeyUp,
        Character,
        Press,
        Release,
        Move,
        Other,  ///< wheel, context menu request, press by an assistive program
    };
    enum class Target : std::int8_t {
        Control,
        Frame,  ///< an area by which the user drags the window
        QuitButton,
    };

    Kind kind = Kind::Other;
    Target target = Target::Control;
    unsigned code = 0;             ///< virtual key, character, or mouse button (from 1)
    bool repeat = false;           ///< sent by a key that is held down
    bool alt = false;              ///< the Alt key is held down
    const void* window = nullptr;  ///< the window that receives the event
    Point at;                      ///< pointer position
    std::uint32_t timeMs = 0;      ///< milliseconds since the system has started; wraps around
};

/// During a run, drops keys and clicks except those that close, move or minimise the window. Events
/// that belong to a dropped press are dropped even after the run: its release, its key repeats, and
/// the second click of a double click.
class InputFilter {
 public:
    /// The system's limits for a double click. Width and height are in pixels.
    struct DoubleClick {
        std::uint32_t timeMs = 500;
        int width = 4;
        int height = 4;
    };

    explicit InputFilter(const DoubleClick& doubleClick) : doubleClick_(doubleClick) {}

    void setRunning(bool running) noexcept { running_ = running; }
    bool running() const noexcept { return running_; }

    /// Called when controls have been shown or hidden, so that another control may be under the
    /// pointer. That control must not get the second press of a double click on the previous
    /// control.
    void controlsChanged() noexcept { changedSincePress_ = true; }

    /// Returns false if the event must be dropped. Must be called once for each event, in order.
    bool accepts(const InputEvent& event);

 private:
    struct Press {
        unsigned button;
        const void* window;
        Point at;
        std::uint32_t timeMs;
        bool dropped;
    };

    bool acceptsKeyDown(const InputEvent& event);
    bool acceptsPress(const InputEvent& event);
    bool continues(const Press& last, const InputEvent& event) const noexcept;

    DoubleClick doubleClick_;
    bool running_ = false;
    bool changedSincePress_ = false;
    std::optional<Press> lastPress_;
    std::bitset<256> droppedKeys_;   ///< keys that are held down since a dropped press
    std::bitset<8> droppedButtons_;  ///< mouse buttons that are held down since a dropped press
};

}  // namespace velvox
