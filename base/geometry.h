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

/// A rectangle given by its edges, in pixels. The right and bottom edges are exclusive.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Rect&) const = default;
};

/// A rectangle given by its top left corner and its size. Layout uses twips relative to the
/// container.
struct Bounds {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Bounds&) const = default;
};

}  // namespace velvox
