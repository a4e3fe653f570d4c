// One random act of a user or of the server, as data: a sequence can be replayed, whole or its end
// only.
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
        Serve,           ///< another `behaviour`
        Start,           ///< the address `text` and a click on Download
        Click,           ///< `count` times `button` at a place in the window
        ClickControl,    ///< the same within `control`
        ClickFirstLine,  ///< the same near the upper left corner of the result pane
        Press,           ///< `button` goes down and stays so
        Release,
        Drag,   ///< from one place to another
        Wheel,  ///< `count` notches, `button` 4 is up and 5 down
        Keys,   ///< `keys` without a pause between them
        Hold,   ///< keys[0] with `count` repetitions
        Type,
        Paste,
        Minimise,
        Restore,
        Settings,  ///< news of the system: colours, theme, work area
        Pause,
        Close,  ///< ends the program in way `count`
    };

    Kind kind = Kind::Pause;
    Behaviour behaviour = Behaviour::Good;
    ControlId control = controlId("output");
    int x = 0;  ///< per mille of the window or the control, as the other three
    int y = 0;
    int toX = 0;
    int toY = 0;
    int button = 1;
    int count = 1;
    std::vector<std::string> keys;
    std::string text;
    int pauseMs = 0;  ///< after it
};

/// In the words of a report.
std::string describe(const Act& act);

/// The acts of a seed: the same on every machine.
std::vector<Act> actsOf(std::uint64_t seed, std::size_t count);

/// Ways of closing.
enum class Closing { QuitButton, AltF4, Message, SystemCommand };
inline constexpr int closingWays = 4;

}  // namespace velvox::e2e
