// The design of the main window: tables of its controls, timers and lines.
#pragma once

#include <span>
#include <string_view>

#include "app/form1/controls.h"
#include "base/control.h"
#include "base/property_bag.h"

namespace velvox {

/// How a control is shown and used.
enum class ControlKind {
    Form,
    TitlePiece,  ///< a picture that the form draws itself
    Box,         ///< a container with its own background
    Text,        ///< a label that the user only reads
    Link,        ///< a label that the user clicks; wraps at its right edge
    DragHandle,  ///< a label by which the user drags the window
    Strip,       ///< a label that shows one line of a longer text
    Address,
    Button,
    List,
    Pane,
    Preview,
};

constexpr bool isLabel(ControlKind kind) {
    return kind >= ControlKind::Text && kind <= ControlKind::Strip;
}

/// When a control is visible: always, while the result area is hidden, or while it is shown.
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
    Bounds bounds;  ///< twips, relative to the parent
    Shown shown = Shown::Always;
    LabelText text = {};
    PropertyBag stored = {};  ///< stored properties of a button or of the address box
};

struct TimerDesign {
    std::string_view name;
    unsigned interval;  ///< milliseconds
    bool enabled;
};

/// Identifier of a control's window.
enum class ControlId : int {};

/// The form first, then its controls. Controls with the same parent are in tab order.
std::span<const ControlDesign> controlDesigns();

/// designOf and controlId throw InvalidCall for a name that is not on the form.
const ControlDesign& designOf(std::string_view name);
ControlId controlId(std::string_view name);

extern const std::span<const TimerDesign> timerDesigns;
extern const std::span<const Line> lineDesigns;

}  // namespace velvox
