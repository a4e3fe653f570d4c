#pragma once

#include <windows.h>

#include "base/colour.h"
#include "base/owned_win32.h"

namespace velvox {

/// Draws the pieces of the skin and the backgrounds that go with them. Where the user asked the
/// system for high contrast, everything is in the system's colours instead.
class Skin {
 public:
    enum class Piece { Icon, Bar, RightEnd, Form, ResultArea, NewsStrip };
    enum class TextRole { Plain, Link, Title };
    enum class Contrast { Normal, High };

    /// Loads the pictures for the screen's resolution. Throws RuntimeFailure (Platform) in a
    /// program without them.
    explicit Skin(Contrast contrast = systemContrast());

    /// Whether the user has asked for high contrast.
    static Contrast systemContrast();

    Contrast contrast() const noexcept { return contrast_; }
    void setContrast(Contrast contrast) noexcept { contrast_ = contrast; }

    /// Whether the window is active; an inactive window's title bar is paler.
    bool active() const noexcept { return active_; }
    void setActive(bool active) noexcept { active_ = active; }

    /// Fills `area` (pixels) of `dc` with a piece.
    void draw(HDC dc, Piece piece, const RECT& area) const;

    /// One etched separator line, level or upright; even ones are the light halves.
    void drawLine(HDC dc, int number, POINT from, POINT to) const;

    /// The colour in which a text that was designed in `designed` is legible.
    Rgb textColour(TextRole role, OleColour designed) const;

 private:
    struct Surfaces;
    struct Picture {
        OwnedBitmap bitmap;
        SIZE size{};
    };

    static Picture load(int piece);
    Surfaces surfaces() const;
    void drawTitle(HDC dc, Piece piece, const RECT& area) const;
    void drawContrastTitle(HDC dc, Piece piece, const RECT& area) const;

    Contrast contrast_;
    bool active_ = true;
    Picture corner_, bar_, end_;
};

}  // namespace velvox
