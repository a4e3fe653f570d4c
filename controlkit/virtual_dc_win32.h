// An off-screen drawing surface. Controls draw into memory and copy the result to the screen once,
// which avoids flicker.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "base/colour.h"
#include "base/font.h"
#include "base/owned_win32.h"
#include "base/picture.h"

#undef DrawText  // the platform's macro of this name would rename the method

namespace velvox {

/// The properties that a surface copies from a picture box. Lengths are in twips.
struct PictureBoxFace {
    int width = 0;
    int height = 0;
    Font font;
    OleColour backColor = systemColour(ButtonFaceColour);
    OleColour foreColor = systemColour(ButtonTextColour);
};

/// A memory DC with a bitmap, a pen, a brush and a font. Coordinates are in pixels; right and
/// bottom edges are exclusive. Before CreateMyDC, and when the system cannot create an object,
/// drawing does nothing and reports no error.
///
/// Pen, brush, font and text colours may be set at any time and apply to every DC that CreateMyDC
/// creates.
class clsVirtualDC {
 public:
    clsVirtualDC() = default;
    clsVirtualDC(const clsVirtualDC&) = delete;
    clsVirtualDC& operator=(const clsVirtualDC&) = delete;
    ~clsVirtualDC() { DestroyDC(); }

    /// The size of the bitmap in pixels. A new size keeps the drawing, and added areas are black.
    /// If the new bitmap cannot be created, the surface is released.
    int Width() const noexcept { return width_; }
    void Width(int pixels) { resize(pixels, height_); }
    int Height() const noexcept { return height_; }
    void Height(int pixels) { resize(width_, pixels); }

    /// The colour that `Cls` fills the surface with.
    OleColour BackColor() const noexcept { return backColor_; }
    void BackColor(OleColour colour) noexcept { backColor_ = colour; }

    /// ForeColor is the text colour. BkColor is the colour around the text and must be an RGB
    /// value.
    OleColour ForeColor() const noexcept { return foreColor_; }
    void ForeColor(OleColour colour);
    OleColour BkColor() const noexcept { return bkColor_; }
    void BkColor(OleColour colour);

    /// The system's background mode. With 0, a new DC keeps the system's default mode (opaque).
    int BackMode() const noexcept { return backMode_; }
    void BackMode(int mode);

    /// No font is selected until one is set. Its points are the height of the cell, not of the
    /// character.
    const std::optional<velvox::Font>& Font() const noexcept { return font_; }
    void Font(const velvox::Font& font);

    HDC hDC() const noexcept { return dc_.get(); }

    /// An independent copy of the whole surface; a picture without an image if there is no surface.
    PicturePtr Picture() const;

    /// Draws the picture at the upper left corner, and holds a reference to it until the next
    /// CreateMyDC.
    void Picture(PicturePtr picture);

    int PenStyle() const noexcept { return pen_.style; }
    void PenStyle(int style);
    int PenWidth() const noexcept { return pen_.width; }
    void PenWidth(int pixels);
    OleColour PenColor() const noexcept { return pen_.colour; }
    void PenColor(OleColour colour);

    /// The initial style is 1 (hollow).
    int BrushStyle() const noexcept { return brush_.style; }
    void BrushStyle(int style);
    OleColour BrushColor() const noexcept { return brush_.colour; }
    void BrushColor(OleColour colour);
    int BrushHatch() const noexcept { return brush_.hatch; }
    void BrushHatch(int hatch);

    /// Replaces the DC and its bitmap. If a size is 0 or less or the system fails, there is no DC
    /// and hDC returns null.
    void CreateMyDC(int Width, int Height);

    /// Copies font and colours of the box and creates a surface of the box's size.
    void CreateFromPictureBox(const PictureBoxFace& box);

    /// Copies a part of the surface, or all of it, to another DC.
    void PaintToDC(HDC target, int x, int y, int width, int height, int sourceX = 0,
                   int sourceY = 0, DWORD operation = SRCCOPY) const;
    void PaintToDC(HDC target, int x = 0, int y = 0) const;

    /// Copies a part of a picture, or all of it, into the surface.
    void DrawImageToVirtualDC(const PicturePtr& picture, int x, int y, int width, int height,
                              int sourceX = 0, int sourceY = 0, DWORD operation = SRCCOPY);
    void DrawImageToVirtualDC(const PicturePtr& picture, int x = 0, int y = 0);

    /// `format` has the system's DT_ flags; with DT_CALCRECT, `rectangle` receives the size.
    /// Returns the text's height.
    int DrawText(std::string_view text, RECT& rectangle, UINT format);
    void DrawLine(int x1, int y1, int x2, int y2);

    /// Direction 1 means left to right, any other number top to bottom.
    void DrawGradient(OleColour Color1, OleColour Color2, int X, int Y, int Width, int Height,
                      int Direction);
    void FillArea(const RECT& rectangle, OleColour colour);
    void InvertArea(const RECT& rectangle);
    void Cls();
    void SetPixel(int x, int y, OleColour colour);

    /// Returns -1 outside the surface and when there is no surface.
    Rgb GetPixel(int x, int y) const;
    void DrawFocusRect(const RECT& rectangle);
    void DrawEllipse(int x1, int y1, int x2, int y2);
    void DrawRectangle(int x1, int y1, int x2, int y2);
    void DrawRoundRectangle(int x1, int y1, int x2, int y2, int cornerWidth, int cornerHeight);
    void DrawEdge(const RECT& rectangle, UINT edge, UINT flags);

    /// Releases all system objects of the surface. Settings stay for the next CreateMyDC, except
    /// Font and Picture, which are cleared.
    void DestroyDC();

 private:
    struct PenRecord {
        int style = PS_SOLID;
        int width = 0;
        OleColour colour = 0;
    };
    struct BrushRecord {
        int style = BS_HOLLOW;
        OleColour colour = 0;
        int hatch = 0;
    };
    using OwnedObject = Owned<HGDIOBJ, &deleteObject>;

    void resize(int width, int height);
    void releaseSurface();
    void makePen();
    void makeBrush();
    void makeFont();

    int width_ = 0;
    int height_ = 0;
    OleColour backColor_ = rgb(255, 255, 255);
    OleColour foreColor_ = rgb(0, 0, 0);
    OleColour bkColor_ = rgb(255, 255, 255);
    int backMode_ = 0;
    PenRecord pen_;
    BrushRecord brush_;
    std::optional<velvox::Font> font_;
    PicturePtr picture_;

    OwnedMemoryDc dc_;
    OwnedBitmap bitmap_;
    OwnedObject previousBitmap_;  // the stock bitmap that the DC held first
    OwnedPen ownedPen_;
    OwnedBrush ownedBrush_;
    OwnedFont ownedFont_;
};

}  // namespace velvox
