// Points, sizes and rectangles in pixels. The layout's own unit is twips: see `Bounds`.
#pragma once

namespace velvox {

struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    int width = 0;
    int height = 0;

    bool operator==(const Size&) const = default;
};

/// Right and bottom lie outside it.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Rect&) const = default;
};

}  // namespace velvox
