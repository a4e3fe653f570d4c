#include "controls/button/is_button_layout.h"

#include <algorithm>

namespace velvox {
namespace {

constexpr unsigned captionFlagTable[] = {37, 36, 38, 33, 41};
constexpr int captionInset = 4;
constexpr int maxPillDiameter = 48;
// Limits a stored icon size, which may be any number, so that iconPlace() cannot overflow. No face
// is large enough to show a difference between sizes above the limit.
constexpr int maxIconSize = 1 << 30;

}  // namespace

unsigned captionFlagsOf(int captionAlign) {
    return captionAlign >= 0 && captionAlign < 5 ? captionFlagTable[captionAlign] : 0;
}

Rect captionRect(int width, int height) {
    return {captionInset, captionInset, width - captionInset, height - captionInset};
}

int iconMargin(int style) {
    switch (style) {
        case 5:
        case 7: return 5;
        case 9:
        case 10: return 7;
        default: return 4;
    }
}

Point iconPlace(int iconAlign, int width, int height, int size, int margin) {
    size = std::min(size, maxIconSize);
    const int middleX = (width - size) / 2;
    const int middleY = (height - size) / 2;
    switch (iconAlign) {
        case 0: return {middleX, middleY};
        case 1: return {margin, middleY};
        case 2: return {width - size - margin, middleY};
        case 3: return {middleX, margin};
        case 4: return {middleX, height - size - margin};
        default: return {};
    }
}

ButtonOutline outlineOf(int style, int w, int h) {
    switch (style) {
        case 5:
        case 7:
            return PolygonOutline{
                {{0, 1}, {1, 0}, {w - 1, 0}, {w, 1}, {w, h - 2}, {w - 2, h}, {2, h}, {0, h - 2}}};
        case 8:
        case 9:
            // The bottom left corner is cut deeper than the others.
            return PolygonOutline{
                {{0, 2}, {2, 0}, {w - 3, 0}, {w, 3}, {w, h - 3}, {w - 3, h}, {4, h}, {0, h - 4}}};
        case 10: return RoundOutline{pillDiameter(w, h)};
        default: return PlainOutline{};
    }
}

int pillDiameter(int width, int height) {
    return std::max(std::min({width, height, maxPillDiameter}), 0);
}

}  // namespace velvox
