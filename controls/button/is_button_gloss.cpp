#include "controls/button/is_button_gloss.h"

#include <algorithm>
#include <cmath>

namespace velvox {
namespace {

constexpr int maxParts = 255;
constexpr int minDifference = 48;  // sum over the three channels
constexpr int lightnessStep = 72;

bool standsOut(Rgb colour, Rgb from) {
    return std::abs(redOf(colour) - redOf(from)) + std::abs(greenOf(colour) - greenOf(from)) +
               std::abs(blueOf(colour) - blueOf(from)) >=
           minDifference;
}

bool isDark(Rgb colour) {
    return redOf(colour) * 3 + greenOf(colour) * 6 + blueOf(colour) < 128 * 10;
}

}  // namespace

Rgb mixed(Rgb under, Rgb over, int parts) {
    return blend(under, over, std::clamp(parts, 0, maxParts), maxParts + 1);
}

Rgb accentOf(const FacePlan& plan) {
    const Rgb accent = plan.highlight(HighlightColour);
    if (standsOut(accent, plan.back())) return accent;
    return shift(accent, isDark(accent) ? lightnessStep : -lightnessStep);
}

}  // namespace velvox
