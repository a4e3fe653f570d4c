// Decides which input of the user reaches the main window.
#pragma once

#include <bitset>
#include <cstdint>
#include <optional>

#include "app/form1/desktop.h"

namespace velvox {

/// One event of the keyboard or the mouse.
struct InputEvent {
    enum class Kind : std::int8_t {
        KeyDown,
        KeyUp,
        Character,
        Press,
        Release,
        Move,
        Other,  ///< wheel, request for a context menu, press by an assistive program
    };
    enum class Target : std::int8_t {
        Control,
        Frame,  ///< what the window is dragged by
        QuitButton,
    };

    Kind kind = Kind::Other;
    Target target = Target::Control;
    unsigned code = 0;             ///< virtual key, character, or number of the mouse button from 1
    bool repeat = false;           ///< from a key that is held down
    bool alt = false;              ///< Alt is held down
    const void* window = nullptr;  ///< target
    Point at;                      ///< position of the pointer
    std::uint32_t timeMs = 0;      ///< since the system has started; wraps around
};

/// While a run is under way, keys and clicks are dropped except those that close, move or minimise
/// the window. What belongs to a dropped press is dropped after the run too: its release, its
/// repeats, and the second click of a double click.
class InputFilter {
 public:
    /// What the system takes for a double click. Pixels.
    struct DoubleClick {
        std::uint32_t timeMs = 500;
        int width = 4;
        int height = 4;
    };

    explicit InputFilter(const DoubleClick& doubleClick) : doubleClick_(doubleClick) {}

    void setRunning(bool running) noexcept { running_ = running; }
    bool running() const noexcept { return running_; }

    /// Controls have been shown or hidden, so another control may be under the pointer now: it must
    /// not get the second press of a double click that began on the previous one.
    void controlsChanged() noexcept { changedSincePress_ = true; }

    /// False when the event is to be dropped. Every event is passed here once, in order.
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
    std::bitset<256> droppedKeys_;   ///< keys whose press was dropped, until their release
    std::bitset<8> droppedButtons_;  ///< mouse buttons, likewise
};

}  // namespace velvox
