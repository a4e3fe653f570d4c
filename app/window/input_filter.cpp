#include "app/window/input_filter.h"

#include <cstdlib>

namespace velvox {
namespace {

using Kind = InputEvent::Kind;
using Target = InputEvent::Target;

constexpr unsigned leftButton = 1;
constexpr unsigned enter = 0x0D;
constexpr unsigned space = 0x20;
constexpr unsigned f4 = 0x73;

// Whether an event closes, moves or minimises the window. Enter and Space have the same number as
// virtual key and as character.
bool closesOrMoves(const InputEvent& event) {
    switch (event.kind) {
        case Kind::KeyDown:
        case Kind::KeyUp:
        case Kind::Character:
            // Alt+F4 closes the window, Alt+Space opens its menu.
            if (event.alt)
                return event.code == space || (event.kind == Kind::KeyDown && event.code == f4);
            return event.target == Target::QuitButton &&
                   (event.code == space || event.code == enter);
        case Kind::Press:
        case Kind::Release:
            return event.target == Target::QuitButton ||
                   (event.target == Target::Frame && event.code == leftButton);
        case Kind::Move: return event.target != Target::Control;
        default: return event.target == Target::QuitButton;
    }
}

// Removes a member from a set. Returns whether the set contained it.
template <class Set>
bool take(Set& set, unsigned member) {
    if (member >= set.size() || !set.test(member)) return false;
    set.reset(member);
    return true;
}

template <class Set>
void put(Set& set, unsigned member) {
    if (member < set.size()) set.set(member);
}

}  // namespace

bool InputFilter::accepts(const InputEvent& event) {
    switch (event.kind) {
        case Kind::KeyDown: return acceptsKeyDown(event);
        case Kind::Press: return acceptsPress(event);
        case Kind::KeyUp:
            if (take(droppedKeys_, event.code)) return false;
            break;
        case Kind::Release:
            if (take(droppedButtons_, event.code)) return false;
            break;
        default: break;
    }
    return !running_ || closesOrMoves(event);
}

bool InputFilter::acceptsKeyDown(const InputEvent& event) {
    const bool droppedBefore = take(droppedKeys_, event.code) && event.repeat;
    if (!droppedBefore && (!running_ || closesOrMoves(event))) return true;
    put(droppedKeys_, event.code);
    return false;
}

bool InputFilter::acceptsPress(const InputEvent& event) {
    take(droppedButtons_, event.code);
    const bool late =
        lastPress_ && continues(*lastPress_, event) &&
        (lastPress_->dropped || (changedSincePress_ && lastPress_->window != event.window));
    const bool passes = running_ ? closesOrMoves(event) : !late;
    if (!passes) put(droppedButtons_, event.code);
    if (running_ || passes)
        lastPress_ = {event.code, event.window, event.at, event.timeMs, !passes};
    else
        lastPress_.reset();  // so that the next press counts as a new click
    changedSincePress_ = false;
    return passes;
}

bool InputFilter::continues(const Press& last, const InputEvent& event) const noexcept {
    return last.button == event.code && event.timeMs - last.timeMs <= doubleClick_.timeMs &&
           2 * std::abs(event.at.x - last.at.x) <= doubleClick_.width &&
           2 * std::abs(event.at.y - last.at.y) <= doubleClick_.height;
}

}  // namespace velvox
