// One random act of a user or of the server, stored as data so that a sequence of acts, or only its
// last ones, can be replayed.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/form1/form1_design.h"

namespace velvox::e2e {

/// How the server replies to page requests from now on.
enum class Behaviour { Good, Slow, CutHeader, CutBody, Redirect, ErrorPage, Junk, Silent };

const char* nameOf(Behaviour behaviour);

struct Act {
    enum class Kind {
        Serve,           ///< the server changes its `behaviour`
        Start,           ///< enters the address `text` and clicks Download
        Click,           ///< clicks `count` times with `button` at a place in the window
        ClickControl,    ///< as Click, within `control`
        ClickFirstLine,  ///< as Click, near the upper left corner of the result pane
        Press,           ///< presses `button` without releasing it
        Release,
        Drag,   ///< presses at one place and releases at another
        Wheel,  ///< turns the wheel by `count` notches; `button` 4 is up and 5 down
        Keys,   ///< presses `keys` without pauses
        Hold,   ///< holds keys[0] for `count` repetitions
        Type,
        Paste,
        Minimise,
        Restore,
        Settings,  ///< announces changed system settings: colours, theme, work area
        Pause,
        Close,  ///< ends the program in the way `count` (Closing)
    };

    Kind kind = Kind::Pause;
    Behaviour behaviour = Behaviour::Good;
    ControlId control = controlId("output");
    int x = 0;  ///< x, y, toX and toY are per mille of the window or the control
    int y = 0;
    int toX = 0;
    int toY = 0;
    int button = 1;
    int count = 1;
    std::vector<std::string> keys;
    std::string text;
    int pauseMs = 0;  ///< pause after the act
};

/// Describes an act for a report.
std::string describe(const Act& act);

/// The acts of a seed, which are the same on every machine.
std::vector<Act> actsOf(std::uint64_t seed, std::size_t count);

/// Ways to end the program.
enum class Closing { QuitButton, AltF4, Message, SystemCommand };
inline constexpr int closingWays = 4;

}  // namespace velvox::e2e
