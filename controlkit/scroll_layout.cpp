#include "controlkit/scroll_layout.h"

#include <algorithm>

#include "controlkit/scroll_control.h"

namespace velvox {
namespace {

std::optional<Axis> shown(Axis preferred, const ScrollLayout& layout) {
    const bool vertical = layout.vertical.hasBar;
    const bool horizontal = layout.horizontal.hasBar;
    if (!vertical && !horizontal) return std::nullopt;
    if (preferred == Axis::Vertical) return vertical ? Axis::Vertical : Axis::Horizontal;
    return horizontal ? Axis::Horizontal : Axis::Vertical;
}

ScrollExtent extent(int room, int content, int takenByOther, bool hasBar) {
    const int view = std::max(room - takenByOther, 0);
    return {view, hasBar, std::max(content - view, 0)};
}

}  // namespace

ScrollLayout layOutScroll(const Size& room, const Size& content, int thickness) {
    bool horizontal = false;
    bool vertical = false;
    // A visible bar reduces only the room of the other direction, so two rounds are enough.
    for (int round = 0; round < 2; ++round) {
        horizontal = content.width > std::max(room.width - (vertical ? thickness : 0), 0);
        vertical = content.height > std::max(room.height - (horizontal ? thickness : 0), 0);
    }
    return {extent(room.width, content.width, vertical ? thickness : 0, horizontal),
            extent(room.height, content.height, horizontal ? thickness : 0, vertical)};
}

int positionShowing(const Span& part, int position, int view) {
    const int least = part.end() - view;
    const int greatest = part.start;
    if (least > greatest) return position >= greatest && position <= least ? position : greatest;
    return std::clamp(position, least, greatest);
}

std::optional<Axis> barOfKey(std::int16_t code, const ScrollLayout& layout) {
    switch (code) {
        case ScrollKeys::left:
        case ScrollKeys::right:
            return layout.horizontal.hasBar ? std::optional(Axis::Horizontal) : std::nullopt;
        case ScrollKeys::up:
        case ScrollKeys::down:
            return layout.vertical.hasBar ? std::optional(Axis::Vertical) : std::nullopt;
        case ScrollKeys::pageUp:
        case ScrollKeys::pageDown:
        case ScrollKeys::home:
        case ScrollKeys::end: return shown(Axis::Vertical, layout);
        default: return std::nullopt;
    }
}

std::optional<Axis> barOfWheel(bool shift, const ScrollLayout& layout) {
    return shown(shift ? Axis::Horizontal : Axis::Vertical, layout);
}

}  // namespace velvox
