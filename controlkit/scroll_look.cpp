#include "controlkit/scroll_look.h"

#include <cstdlib>

namespace velvox {
namespace {

OleColour fillOf(const tsPrivateScroll& bar, ScrollPart part, PartState state) {
    if (isTrack(part)) return state == PartState::Down ? bar.LargeChangeColor() : bar.BackColor();
    if (state == PartState::Down) return bar.DownColor();
    return state == PartState::Hover ? bar.MouseHoverColor() : bar.FrontColor();
}

bool hasLowContrast(Rgb glyph, Rgb fill) {
    const auto distance = [&](auto of) { return std::abs(of(glyph) - of(fill)); };
    return distance(redOf) + distance(greenOf) + distance(blueOf) < scrollSizes.minContrast;
}

}  // namespace

ScrollPartLook scrollPartLook(const tsPrivateScroll& bar, ScrollPart part, PartState state,
                              const SystemColours& table) {
    const Rgb track = translate(bar.BackColor(), table);
    const auto shown = [&](OleColour colour) {
        const Rgb plain = translate(colour, table);
        return bar.Enabled() ? plain : average(plain, track);
    };
    ScrollPartLook look;
    look.fill = shown(fillOf(bar, part, bar.Enabled() ? state : PartState::None));
    look.border = shown(bar.BorderColor());
    look.glyph = part == ScrollPart::Thumb ? look.border : shown(bar.ArrowColor());
    if (hasLowContrast(look.glyph, look.fill)) look.glyph = look.border;
    return look;
}

}  // namespace velvox
