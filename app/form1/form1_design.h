// The design of the main window: the one table of its controls, and its timers and lines.
#pragma once

#include <span>
#include <string_view>

#include "app/form1/controls.h"
#include "base/control.h"
#include "base/property_bag.h"

namespace velvox {

/// What a control is on the screen.
enum class ControlKind {
    Form,
    TitlePiece,  ///< a picture that the form draws itself
    Box,         ///< a container with a background of its own
    Text,        ///< a label that is only read
    Link,        ///< a label that is clicked; wraps at its right edge
    DragHandle,  ///< a label that the window is dragged by
    Strip,       ///< a label for one line of a longer text
    Address,
    Button,
    List,
    Pane,
    Preview,
};

constexpr bool isLabel(ControlKind kind) {
    return kind >= ControlKind::Text && kind <= ControlKind::Strip;
}

/// When a control is visible: the result area covers others while it is shown.
enum class Shown { Always, Covered, Result };

struct LabelText {
    std::string_view caption;
    OleColour colour = systemColour(ButtonTextColour);
    Font font;
};

struct ControlDesign {
    std::string_view name;
    ControlKind kind;
    std::string_view parent;
    Bounds bounds;  ///< twips, in its parent
    Shown shown = Shown::Always;
    LabelText text = {};
    PropertyBag stored = {};  ///< of a button or the address box
};

struct TimerDesign {
    std::string_view name;
    unsigned interval;  ///< milliseconds
    bool enabled;
};

/// The number of a control's window.
enum class ControlId : int {};

/// The form first, then its controls: those with the same parent in the order of the tab key.
std::span<const ControlDesign> controlDesigns();

/// Both throw InvalidCall for a name that is not on the form.
const ControlDesign& designOf(std::string_view name);
ControlId controlId(std::string_view name);

extern const std::span<const TimerDesign> timerDesigns;
extern const std::span<const Line> lineDesigns;

}  // namespace velvox
