#pragma once

#include <windows.h>

namespace velvox {

/// Draws the pieces of the skin and the backgrounds that go with them.
class Skin {
 public:
    enum class Piece { Icon, Bar, RightEnd, Form, ResultArea, NewsStrip };

    /// Fills `area` (pixels) of `dc` with a piece.
    void draw(HDC dc, Piece piece, const RECT& area) const;

    /// One etched separator line; even ones are the light halves.
    void drawLine(HDC dc, int number, POINT from, POINT to) const;
};

}  // namespace velvox
