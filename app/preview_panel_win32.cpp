#include "app/preview_panel_win32.h"

#include "base/twips.h"

namespace velvox {
namespace {

// Twips.
struct Sizes {
    int margin = 120;
    int labelWidth = 780;
    int rowGap = 60;
};
constexpr Sizes sizes;

struct Colours {
    int background = COLOR_WINDOW;
    int label = COLOR_GRAYTEXT;
    int value = COLOR_WINDOWTEXT;
};
constexpr Colours colours;

// Longer than any panel holds; keeps measuring short whatever a server redirects to.
constexpr std::size_t longestAddress = 4096;

constexpr UINT wrapped = DT_NOPREFIX | DT_WORDBREAK | DT_EDITCONTROL;
constexpr wchar_t ellipsis = L'\x2026';

int heightOf(HDC dc, const std::wstring& text, int width) {
    RECT measured{0, 0, width, 0};
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &measured, wrapped | DT_CALCRECT);
    return measured.bottom;
}

// The text as it is, or as much of its beginning as fits, with an ellipsis.
std::wstring fitted(HDC dc, std::wstring text, int width, int height) {
    if (text.size() > longestAddress) text.resize(longestAddress);
    if (heightOf(dc, text, width) <= height) return text;
    std::size_t fits = 0;
    for (std::size_t tooLong = text.size(); tooLong - fits > 1;) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (heightOf(dc, text.substr(0, middle) + ellipsis, width) <= height ? fits : tooLong) = middle;
    }
    return text.substr(0, fits) + ellipsis;
}

const char* noteOf(PreviewContent::Kind kind) {
    switch (kind) {
        case PreviewContent::Kind::Blank: return "The preview appears here.";
        case PreviewContent::Kind::Loading: return "Loading...";
        case PreviewContent::Kind::NotRendered: return "Pages cannot be shown on this system.";
        case PreviewContent::Kind::Unviewable: return "Files of this type cannot be shown here.";
        case PreviewContent::Kind::Unreachable: return "This address could not be reached.";
    }
    return "";
}

class Painter {
 public:
    Painter(HDC dc, const RECT& bounds) : dc_(dc), bounds_(bounds) {
        FillRect(dc, &bounds, GetSysColorBrush(colours.background));
        SetBkMode(dc, TRANSPARENT);
        const int margin = pixels(sizes.margin);
        InflateRect(&bounds_, -margin, -margin);
        lineHeight_ = heightOf(dc, L"X", bounds_.right - bounds_.left);
    }

    void note(const char* text) {
        const std::wstring wide = widen(text);
        RECT at = bounds_;
        const int height = heightOf(dc_, wide, at.right - at.left);
        at.top = std::max(at.top, at.bottom - height);
        draw(wide, at, colours.label, wrapped);
        bounds_.bottom = at.top - pixels(sizes.rowGap);
    }

    void centredNote(const char* text) {
        draw(widen(text), bounds_, colours.label,
             DT_NOPREFIX | DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_END_ELLIPSIS);
    }

    void row(const char* label, const std::string& value, int rowsBelow) {
        const int gap = pixels(sizes.rowGap);
        RECT at = bounds_;
        at.bottom -= rowsBelow * (lineHeight_ + gap);
        draw(widen(label), at, colours.label, DT_NOPREFIX | DT_SINGLELINE);
        at.left += pixels(sizes.labelWidth);
        const int width = at.right - at.left;
        const std::wstring text =
            fitted(dc_, widen(value), width, std::max<int>(at.bottom - at.top, lineHeight_));
        draw(text, at, colours.value, wrapped);
        bounds_.top += std::max(heightOf(dc_, text, width), lineHeight_) + gap;
    }

 private:
    static int pixels(int twips) { return toPixels(twips, screenDpi()); }

    void draw(const std::wstring& text, RECT at, int colour, UINT format) {
        SetTextColor(dc_, GetSysColor(colour));
        DrawTextW(dc_, text.data(), static_cast<int>(text.size()), &at, format);
    }

    HDC dc_;
    RECT bounds_;
    int lineHeight_ = 0;
};

}  // namespace

void PreviewPanel::paint(HDC dc, const RECT& bounds, const PreviewContent& content) const {
    const Selected font(dc, font_.get());
    Painter painter(dc, bounds);
    const char* const note = noteOf(content.kind);
    if (content.kind == PreviewContent::Kind::Blank || content.kind == PreviewContent::Kind::Loading)
        return painter.centredNote(note);
    painter.note(note);
    const bool arrived = content.kind != PreviewContent::Kind::Unreachable;
    painter.row("Address", content.address, arrived ? 2 : 0);
    if (!arrived) return;
    painter.row("Type", content.facts.type.empty() ? "unknown" : content.facts.type, 1);
    const std::string size = sizeText(content.facts.size);
    painter.row("Size", size.empty() ? "unknown" : size, 0);
}

}  // namespace velvox
