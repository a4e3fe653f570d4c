#include "controlkit/virtual_dc_win32.h"

#include <array>
#include <cmath>
#include <cstring>
#include <utility>

#include "base/system_win32.h"
#include "base/twips.h"
#include "controlkit/bitmap_picture_win32.h"
#include "controlkit/gradient.h"

namespace velvox {
namespace {

COLORREF plain(OleColour colour) {
    const bool isSystemColour = (colour & 0x80000000U) != 0;
    return isSystemColour ? GetSysColor(static_cast<int>(colour & 0x7FFFFFFFU)) : colour;
}

TRIVERTEX toPlatform(const GradientVertex& v) {
    return {v.x, v.y, v.red, v.green, v.blue, v.alpha};
}

/// Returns null for an empty size, for which the system would create a bitmap of one pixel.
OwnedBitmap compatibleBitmap(HDC screen, int width, int height) {
    if (width <= 0 || height <= 0) return {};
    return OwnedBitmap(CreateCompatibleBitmap(screen, width, height));
}

constexpr WORD paletteEntries = 256;

/// A copy of the system's palette as a logical palette.
OwnedPalette copySystemPalette(HDC screen) {
    struct {
        WORD version = 0x300;
        WORD count = paletteEntries;
        std::array<PALETTEENTRY, paletteEntries> entries{};
    } palette;
    static_assert(offsetof(LOGPALETTE, palPalEntry) == 2 * sizeof(WORD));
    GetSystemPaletteEntries(screen, 0, paletteEntries, palette.entries.data());
    return OwnedPalette(CreatePalette(reinterpret_cast<const LOGPALETTE*>(&palette)));
}

}  // namespace

void clsVirtualDC::CreateMyDC(int Width, int Height) {
    releaseSurface();
    width_ = Width;
    height_ = Height;
    {
        const WindowDc screen(nullptr);
        OwnedMemoryDc dc(CreateCompatibleDC(screen.get()));
        OwnedBitmap bitmap = compatibleBitmap(screen.get(), Width, Height);
        if (dc && bitmap) {
            previousBitmap_.reset(SelectObject(dc.get(), bitmap.get()));
            dc_ = std::move(dc);
            bitmap_ = std::move(bitmap);
        }
        picture_.reset();
    }
    SetBkMode(dc_.get(), backMode_);
    SetTextColor(dc_.get(), plain(foreColor_));
    SetBkColor(dc_.get(), bkColor_);
    makePen();
    makeBrush();
    makeFont();
}

void clsVirtualDC::CreateFromPictureBox(const PictureBoxFace& box) {
    Font(box.font);
    BackColor(box.backColor);
    ForeColor(box.foreColor);
    CreateMyDC(toPixels(box.width), toPixels(box.height));
}

void clsVirtualDC::resize(int width, int height) {
    width_ = width;
    height_ = height;
    if (!dc_) return;
    const WindowDc screen(nullptr);
    const OwnedMemoryDc old(CreateCompatibleDC(screen.get()));
    OwnedBitmap next = compatibleBitmap(screen.get(), width, height);
    if (!old || !next) return releaseSurface();
    // A bitmap can be selected into only one DC, so the previous bitmap is selected into `old`,
    // from which its pixels are copied.
    SelectObject(dc_.get(), next.get());
    const ScopedSelectObject copied(old.get(), bitmap_.get());
    BitBlt(dc_.get(), 0, 0, width, height, old.get(), 0, 0, SRCCOPY);
    std::swap(bitmap_, next);
}

void clsVirtualDC::releaseSurface() {
    // The objects are deleted while still selected, and the DC is deleted last. The system defers
    // the deletion of a selected object until its DC is deleted, and never deletes a stock object.
    ownedFont_.reset();
    ownedPen_.reset();
    ownedBrush_.reset();
    bitmap_.reset();
    previousBitmap_.reset();
    dc_.reset();
}

void clsVirtualDC::DestroyDC() {
    font_.reset();
    picture_.reset();
    releaseSurface();
}

void clsVirtualDC::makePen() {
    ownedPen_.reset();
    ownedPen_.reset(CreatePen(pen_.style, pen_.width, pen_.colour));
    SelectObject(dc_.get(), ownedPen_.get());
}

void clsVirtualDC::PenStyle(int style) {
    pen_.style = style;
    makePen();
}
void clsVirtualDC::PenWidth(int pixels) {
    pen_.width = pixels;
    makePen();
}
void clsVirtualDC::PenColor(OleColour colour) {
    pen_.colour = colour;
    makePen();
}

void clsVirtualDC::makeBrush() {
    ownedBrush_.reset();
    const LOGBRUSH record{static_cast<UINT>(brush_.style), brush_.colour,
                          static_cast<ULONG_PTR>(brush_.hatch)};
    ownedBrush_.reset(CreateBrushIndirect(&record));
    SelectObject(dc_.get(), ownedBrush_.get());
}

void clsVirtualDC::BrushStyle(int style) {
    brush_.style = style;
    makeBrush();
}
void clsVirtualDC::BrushColor(OleColour colour) {
    brush_.colour = colour;
    makeBrush();
}
void clsVirtualDC::BrushHatch(int hatch) {
    brush_.hatch = hatch;
    makeBrush();
}

void clsVirtualDC::makeFont() {
    if (!font_) return;
    LOGFONTW request{};
    // A positive lfHeight is the height of the character cell. scaleLength() takes whole points.
    request.lfHeight =
        scaleLength(static_cast<int>(std::nearbyint(font_->points)), screenDpi(), 72);
    request.lfWeight = font_->bold ? FW_BOLD : FW_NORMAL;
    request.lfItalic = font_->italic;
    request.lfUnderline = font_->underline;
    request.lfStrikeOut = font_->strikeThrough;
    request.lfCharSet = DEFAULT_CHARSET;
    const std::wstring face = widen(font_->name).substr(0, LF_FACESIZE - 1);
    face.copy(request.lfFaceName, face.size());
    OwnedFont next(CreateFontIndirectW(&request));
    SelectObject(dc_.get(), next.get());
    ownedFont_ = std::move(next);
}

void clsVirtualDC::Font(const velvox::Font& font) {
    font_ = font;
    makeFont();
}

void clsVirtualDC::ForeColor(OleColour colour) {
    foreColor_ = colour;
    SetTextColor(dc_.get(), plain(colour));
}

void clsVirtualDC::BkColor(OleColour colour) {
    bkColor_ = colour;
    SetBkColor(dc_.get(), colour);
}

void clsVirtualDC::BackMode(int mode) {
    backMode_ = mode;
    SetBkMode(dc_.get(), mode);
}

PicturePtr clsVirtualDC::Picture() const {
    if (!dc_) return std::make_shared<BitmapPicture>();
    const WindowDc screen(nullptr);
    const OwnedMemoryDc copy(CreateCompatibleDC(screen.get()));
    OwnedBitmap bitmap(CreateCompatibleBitmap(screen.get(), width_, height_));
    OwnedPalette palette;
    if (GetDeviceCaps(screen.get(), RASTERCAPS) & RC_PALETTE) {
        palette = copySystemPalette(screen.get());
        SelectPalette(copy.get(), palette.get(), FALSE);
        RealizePalette(copy.get());
    }
    {
        const ScopedSelectObject target(copy.get(), bitmap.get());
        BitBlt(copy.get(), 0, 0, width_, height_, dc_.get(), 0, 0, SRCCOPY);
    }
    if (palette)
        SelectPalette(copy.get(), static_cast<HPALETTE>(GetStockObject(DEFAULT_PALETTE)), FALSE);
    return std::make_shared<BitmapPicture>(std::move(bitmap), std::move(palette));
}

void clsVirtualDC::Picture(PicturePtr picture) {
    picture_ = std::move(picture);
    DrawImageToVirtualDC(picture_);
}

void clsVirtualDC::PaintToDC(HDC target, int x, int y, int width, int height, int sourceX,
                             int sourceY, DWORD operation) const {
    BitBlt(target, x, y, width, height, dc_.get(), sourceX, sourceY, operation);
}

void clsVirtualDC::PaintToDC(HDC target, int x, int y) const {
    PaintToDC(target, x, y, width_, height_);
}

void clsVirtualDC::DrawImageToVirtualDC(const PicturePtr& picture, int x, int y, int width,
                                        int height, int sourceX, int sourceY, DWORD operation) {
    const auto* image = dynamic_cast<const BitmapPicture*>(picture.get());
    if (!dc_ || !image || !image->hasImage()) return;
    const WindowDc screen(nullptr);
    const OwnedMemoryDc source(CreateCompatibleDC(screen.get()));
    const ScopedSelectObject selected(source.get(), image->bitmap());
    BitBlt(dc_.get(), x, y, width, height, source.get(), sourceX, sourceY, operation);
}

void clsVirtualDC::DrawImageToVirtualDC(const PicturePtr& picture, int x, int y) {
    const auto* image = dynamic_cast<const BitmapPicture*>(picture.get());
    if (!image) return;
    DrawImageToVirtualDC(picture, x, y, image->size().cx, image->size().cy);
}

int clsVirtualDC::DrawText(std::string_view text, RECT& rectangle, UINT format) {
    const std::wstring wide = widen(text);
    // With DT_MODIFYSTRING the system could write up to four characters beyond the end of the text.
    return DrawTextW(dc_.get(), wide.c_str(), static_cast<int>(wide.size()), &rectangle,
                     format & ~static_cast<UINT>(DT_MODIFYSTRING));
}

void clsVirtualDC::DrawLine(int x1, int y1, int x2, int y2) {
    MoveToEx(dc_.get(), x1, y1, nullptr);
    LineTo(dc_.get(), x2, y2);
}

void clsVirtualDC::DrawGradient(OleColour Color1, OleColour Color2, int X, int Y, int Width,
                                int Height, int Direction) {
    const auto corners = gradientVertices(Color1, Color2, X, Y, Width, Height);
    TRIVERTEX vertices[] = {toPlatform(corners[0]), toPlatform(corners[1])};
    GRADIENT_RECT rectangle{0, 1};
    GdiGradientFill(dc_.get(), vertices, 2, &rectangle, 1,
                    Direction == leftToRight ? GRADIENT_FILL_RECT_H : GRADIENT_FILL_RECT_V);
}

void clsVirtualDC::FillArea(const RECT& rectangle, OleColour colour) {
    fill(dc_.get(), rectangle, plain(colour));
}

void clsVirtualDC::InvertArea(const RECT& rectangle) {
    InvertRect(dc_.get(), &rectangle);
}

void clsVirtualDC::Cls() {
    FillArea({0, 0, width_, height_}, backColor_);
}

void clsVirtualDC::SetPixel(int x, int y, OleColour colour) {
    SetPixelV(dc_.get(), x, y, colour);
}

Rgb clsVirtualDC::GetPixel(int x, int y) const {
    const bool inside = dc_ && x >= 0 && y >= 0 && x < width_ && y < height_;
    return inside ? static_cast<Rgb>(::GetPixel(dc_.get(), x, y)) : -1;
}

void clsVirtualDC::DrawFocusRect(const RECT& rectangle) {
    ::DrawFocusRect(dc_.get(), &rectangle);
}

void clsVirtualDC::DrawEllipse(int x1, int y1, int x2, int y2) {
    Ellipse(dc_.get(), x1, y1, x2, y2);
}

void clsVirtualDC::DrawRectangle(int x1, int y1, int x2, int y2) {
    Rectangle(dc_.get(), x1, y1, x2, y2);
}

void clsVirtualDC::DrawRoundRectangle(int x1, int y1, int x2, int y2, int cornerWidth,
                                      int cornerHeight) {
    RoundRect(dc_.get(), x1, y1, x2, y2, cornerWidth, cornerHeight);
}

void clsVirtualDC::DrawEdge(const RECT& rectangle, UINT edge, UINT flags) {
    RECT edges = rectangle;
    ::DrawEdge(dc_.get(), &edges, edge, flags);
}

}  // namespace velvox
