// Points, sizes and rectangles.
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

/// A rectangle by its edges, in pixels. Right and bottom lie outside it.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Rect&) const = default;
};

/// A rectangle by its corner and size. In the layout in twips, relative to the container.
struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Bounds&) const = default;
};

}  // namespace velvox
