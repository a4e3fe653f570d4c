#pragma once

#include <windows.h>

#include "base/colour.h"
#include "base/owned_win32.h"

namespace velvox {

/// Draws the pieces of the skin and their backgrounds. If the user has turned on high contrast in
/// Windows, everything is drawn in system colours.
class Skin {
 public:
    enum class Piece { Icon, Bar, RightEnd, Form, ResultArea, NewsStrip };
    enum class TextRole { Plain, Link, Title };
    enum class Contrast { Normal, High };

    /// Loads the pictures for the screen's resolution. Throws RuntimeFailure (Platform) if the
    /// program's resources lack them.
    explicit Skin(Contrast contrast = systemContrast());

    /// The contrast that the user has chosen in Windows.
    static Contrast systemContrast();

    void setContrast(Contrast contrast) noexcept { contrast_ = contrast; }

    /// Whether the window is active. An inactive window's title bar is paler.
    void setActive(bool active) noexcept { active_ = active; }

    /// Draws a piece into `area` of `dc`, in pixels.
    void draw(HDC dc, Piece piece, const RECT& area) const;

    /// Draws a separator line, horizontal or vertical: light for an even `number`, dark for an odd
    /// one.
    void drawLine(HDC dc, int number, POINT from, POINT to) const;

    /// A legible colour for a text whose designed colour is `designed`.
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
