#include "controlkit/scroll_look.h"

#include <cstdlib>

namespace velvox {
namespace {

OleColour fillOf(const tsPrivateScroll& bar, ScrollPart part, Touch touch) {
    if (isTrack(part)) return touch == Touch::Down ? bar.LargeChangeColor() : bar.BackColor();
    if (touch == Touch::Down) return bar.DownColor();
    return touch == Touch::Hover ? bar.MouseHoverColor() : bar.FrontColor();
}

bool isSwallowed(Rgb glyph, Rgb fill) {
    const auto distance = [&](auto of) { return std::abs(of(glyph) - of(fill)); };
    return distance(redOf) + distance(greenOf) + distance(blueOf) < scrollSizes.lightContrast;
}

}  // namespace

ScrollPartLook scrollPartLook(const tsPrivateScroll& bar, ScrollPart part, Touch touch,
                              const SystemColours& table) {
    const Rgb track = translate(bar.BackColor(), table);
    const auto shown = [&](OleColour colour) {
        const Rgb plain = translate(colour, table);
        return bar.Enabled() ? plain : average(plain, track);
    };
    ScrollPartLook look;
    look.fill = shown(fillOf(bar, part, bar.Enabled() ? touch : Touch::None));
    look.border = shown(bar.BorderColor());
    look.glyph = part == ScrollPart::Thumb ? look.border : shown(bar.ArrowColor());
    if (isSwallowed(look.glyph, look.fill)) look.glyph = look.border;
    return look;
}

}  // namespace velvox
