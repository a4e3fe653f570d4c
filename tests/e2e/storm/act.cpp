#include "tests/e2e/storm/act.h"

#include <array>
#include <iterator>
#include <random>
#include <sstream>

#include "tests/support/example_addresses.h"

namespace velvox::e2e {
namespace {

using Kind = Act::Kind;

constexpr const char* badAddresses[] = {"", "http://www.example.org/",
                                        "HTTP://WWW.VEOH.COM/VIDEOS/"};
constexpr const char* texts[] = {"a", "veoh.com/videos/x", "0123456789", " ", "http://", "ocax mn"};
constexpr const char* singleKeys[] = {
    "Tab",    "shift+Tab", "Return",       "space",    "Escape",    "Up",     "Down",
    "Left",   "Right",     "Home",         "End",      "Prior",     "Next",   "F4",
    "Delete", "BackSpace", "ctrl+a",       "ctrl+c",   "ctrl+v",    "F10",    "shift+F10",
    "Menu",   "alt",       "shift+Insert", "alt+Down", "alt+space", "ctrl+z", "shift+Down",
};
const std::array<ControlId, 13> clickable = {
    controlId("linkin"),    controlId("UniXPButton1"), controlId("ds"),
    controlId("vd"),        controlId("outer"),        controlId("isButton1"),
    controlId("isButton1"), controlId("topendskin"),   controlId("Label12"),
    controlId("Label5"),    controlId("output"),       controlId("output"),
    controlId("web"),
};
const std::vector<std::string> chains[] = {
    {"Tab", "Return"},
    {"Return", "Return"},
    {"Return", "Escape"},
    {"Escape", "Return"},
    {"shift+Tab", "Return"},
    {"Tab", "space"},
    {"Tab", "Tab", "Return"},
    {"Down", "Return"},
    {"shift+F10", "Down", "Return"},
    {"shift+F10", "o"},
    {"shift+F10", "Escape"},
    {"shift+F10", "a"},
    {"Menu", "c"},
    {"alt+space", "Escape"},
    {"alt+space", "n"},
    {"alt+space", "m", "Right", "Right", "Return"},
    {"alt+space", "m", "Up", "Escape"},
    {"alt+Down", "Down", "Return"},
    {"Escape", "Tab", "Return", "Tab"},
    {"Tab", "Return", "Return", "Return"},
    {"Home", "Return", "Escape", "Return"},
};

// The standard defines the generator's numbers, but its distributions differ between standard
// libraries.
class Dice {
 public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    int below(std::size_t limit) { return static_cast<int>(engine_() % limit); }
    bool chance(int perCent) { return below(100) < perCent; }
    template <class Range>
    const auto& of(const Range& range) {
        return *std::next(std::begin(range), below(std::size(range)));
    }

 private:
    std::mt19937_64 engine_;
};

// The rows are in the order of Act::Kind.
constexpr struct {
    const char* name;
    int weight;
} kinds[] = {
    {"server:", 8},
    {"download", 13},
    {"click", 13},
    {"click on control", 12},
    {"click on the pane's first lines", 8},
    {"press", 2},
    {"release", 2},
    {"drag", 5},
    {"wheel", 3},
    {"keys", 28},
    {"hold", 2},
    {"type", 4},
    {"paste", 1},
    {"minimise", 1},
    {"restore", 2},
    {"system news", 2},
    {"pause", 3},
    {"close", 1},
};

Kind anyKind(Dice& dice) {
    int all = 0;
    for (const auto& row : kinds) all += row.weight;
    int drawn = dice.below(static_cast<std::size_t>(all));
    int kind = 0;
    while ((drawn -= kinds[kind].weight) >= 0) ++kind;
    return static_cast<Kind>(kind);
}

int anyButton(Dice& dice) {
    const int drawn = dice.below(20);
    return drawn < 15 ? 1 : drawn < 19 ? 3 : 2;
}

int anyPause(Dice& dice) {
    const int drawn = dice.below(10);
    return drawn < 6 ? 0 : drawn < 9 ? dice.below(20) : dice.below(80);
}

// Slow replies are frequent, so that many acts happen during runs. Silence is rare, because it
// takes long.
Behaviour anyBehaviour(Dice& dice) {
    constexpr Behaviour behaviours[] = {
        Behaviour::Good,     Behaviour::Good,     Behaviour::Good,      Behaviour::Slow,
        Behaviour::Slow,     Behaviour::Slow,     Behaviour::CutHeader, Behaviour::CutBody,
        Behaviour::Redirect, Behaviour::Redirect, Behaviour::ErrorPage, Behaviour::Junk,
        Behaviour::Silent,
    };
    return dice.of(behaviours);
}

Act anyAct(Dice& dice) {
    Act act;
    act.kind = anyKind(dice);
    // All kinds of acts draw these values, also kinds that do not use them.
    act.behaviour = anyBehaviour(dice);
    act.control = dice.of(clickable);
    for (int* place : {&act.x, &act.y, &act.toX, &act.toY}) *place = dice.below(1000);
    act.button = anyButton(dice);
    act.count = 1 + dice.chance(25) + dice.chance(5);
    if (act.kind == Kind::Keys && dice.chance(40))
        act.keys = dice.of(chains);
    else
        act.keys = {dice.of(singleKeys)};
    if (act.kind == Kind::Hold) act.keys = {dice.chance(70) ? "Return" : "space"};
    if (act.kind == Kind::Hold) act.count = 3 + dice.below(20);
    if (act.kind == Kind::Wheel) act.button = 4 + dice.below(2);
    if (act.kind == Kind::Settings) act.count = dice.below(5);
    if (act.kind == Kind::Close) act.count = dice.below(closingWays);
    act.text = act.kind == Kind::Type ? dice.of(texts)
               : dice.chance(12)      ? dice.of(badAddresses)
                                      : dice.of(exampleAddresses);
    act.pauseMs = act.kind == Kind::Pause ? 50 + dice.below(300) : anyPause(dice);
    return act;
}

}  // namespace

const char* nameOf(Behaviour behaviour) {
    constexpr const char* names[] = {
        "good", "slow",  "cut in the header", "cut in the body", "redirect", "error page",
        "junk", "silent"};
    return names[static_cast<int>(behaviour)];
}

std::string describe(const Act& act) {
    std::ostringstream text;
    text << kinds[static_cast<int>(act.kind)].name;
    if (act.kind == Kind::ClickControl) text << ' ' << static_cast<int>(act.control);
    switch (act.kind) {
        case Kind::Serve: text << ' ' << nameOf(act.behaviour); break;
        case Kind::Start:
        case Kind::Type:
        case Kind::Paste: text << " \"" << act.text << '"'; break;
        case Kind::Keys:
        case Kind::Hold:
            for (const std::string& key : act.keys) text << ' ' << key;
            break;
        case Kind::Minimise:
        case Kind::Restore:
        case Kind::Pause: break;
        case Kind::Settings:
        case Kind::Close: text << ' ' << act.count; break;
        default:
            text << ", button " << act.button << " x" << act.count << " at " << act.x << ','
                 << act.y;
            if (act.kind == Kind::Drag) text << " to " << act.toX << ',' << act.toY;
    }
    if (act.kind == Kind::Hold) text << " x" << act.count;
    if (act.pauseMs > 0) text << ", then " << act.pauseMs << " ms";
    return text.str();
}

std::vector<Act> actsOf(std::uint64_t seed, std::size_t count) {
    Dice dice(seed);
    std::vector<Act> acts(count);
    for (Act& act : acts) act = anyAct(dice);
    return acts;
}

}  // namespace velvox::e2e
