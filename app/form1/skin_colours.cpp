#include "app/form1/skin_colours.h"

#include <algorithm>
#include <iterator>

#include "app/form1/skin_palette.h"

namespace velvox {
namespace {

struct TextOnSurface {
    SystemColour text;
    Rgb surface;
    double contrast;
};

// Each row has a system colour that controls use for text, the colour of the skin's surface below
// that text, and the minimum contrast of the two.
constexpr TextOnSurface texts[] = {
    {ButtonTextColour, palette::button, textContrast},
    {WindowTextColour, palette::box, textContrast},
    {GrayTextColour, palette::button, 2},  // disabled text need only be visible
};

constexpr struct {
    SystemColour index;
    Rgb colour;
} lightScheme[] = {
    {WindowColour, rgb(255, 255, 255)},       {WindowTextColour, rgb(0, 0, 0)},
    {HighlightColour, rgb(0, 120, 215)},      {ButtonFaceColour, rgb(240, 240, 240)},
    {ButtonShadowColour, rgb(160, 160, 160)}, {GrayTextColour, rgb(109, 109, 109)},
    {ButtonTextColour, rgb(0, 0, 0)},         {InfoTextColour, rgb(0, 0, 0)},
    {InfoBackColour, rgb(255, 255, 225)},
};

}  // namespace

Rgb SkinColours::colour(int index) const {
    const bool readable =
        highContrast_ ||
        std::all_of(std::begin(texts), std::end(texts), [this](const TextOnSurface& row) {
            return contrast(system_.colour(row.text), row.surface) >= row.contrast;
        });
    const auto light = std::find_if(std::begin(lightScheme), std::end(lightScheme),
                                    [index](const auto& row) { return row.index == index; });
    return readable || light == std::end(lightScheme) ? system_.colour(index) : light->colour;
}

}  // namespace velvox
