#include "app/browser/preview_panel_win32.h"

#include <algorithm>
#include <vector>

#include "app/form1/skin_palette.h"
#include "base/system_win32.h"
#include "base/twips.h"

namespace velvox {
namespace {

// Lengths in twips.
struct Sizes {
    int margin = 120;
    int labelWidth = 720;
    int rowGap = 60;
};
constexpr Sizes sizes;

constexpr int backgroundColour = COLOR_WINDOW;

COLORREF valueColour() {
    return GetSysColor(COLOR_WINDOWTEXT);
}

// The system's grey text colour is too light to be read on the system's window colour.
COLORREF labelColour() {
    if (highContrast()) return valueColour();
    const auto background = static_cast<Rgb>(GetSysColor(backgroundColour));
    return static_cast<COLORREF>(legible(palette::quietText, background, textContrast));
}

// More characters than the preview area can show. The limit keeps measuring fast, however long a
// redirect's address is.
constexpr std::size_t maxAddressLength = 4096;

constexpr UINT wrapped = DT_NOPREFIX | DT_WORDBREAK;
constexpr wchar_t ellipsis = L'\x2026';

int textHeight(HDC dc, const std::wstring& text, int width) {
    RECT measured{0, 0, width, 0};
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &measured, wrapped | DT_CALCRECT);
    return measured.bottom;
}

std::size_t fitting(HDC dc, std::wstring_view text, int width) {
    int count = 0;
    SIZE size{};
    GetTextExtentExPointW(dc, text.data(), static_cast<int>(text.size()), width, &count, nullptr,
                          &size);
    return static_cast<std::size_t>(count);
}

// Breaks a text into lines of `width` pixels, between any two characters: addresses have no blanks,
// and systems differ in where DrawText breaks them. If text remains, the last line ends in an
// ellipsis.
std::vector<std::wstring> breakIntoLines(HDC dc, std::wstring_view text, int width,
                                         std::size_t maxLines) {
    std::vector<std::wstring> lines;
    while (!text.empty() && lines.size() < maxLines) {
        const std::size_t count = std::max<std::size_t>(fitting(dc, text, width), 1);
        lines.emplace_back(text.substr(0, count));
        text.remove_prefix(count);
    }
    if (text.empty() || lines.empty()) return lines;
    std::wstring& last = lines.back();
    while (!last.empty() && fitting(dc, last + ellipsis, width) <= last.size()) last.pop_back();
    last += ellipsis;
    return lines;
}

std::string noteFor(const PreviewContent& content) {
    switch (content.kind) {
        case PreviewContent::Kind::Blank: break;
        case PreviewContent::Kind::NoPreview: return "No preview for this site";
        case PreviewContent::Kind::Loading: return "Loading...";
        case PreviewContent::Kind::NotRendered: return "This page cannot be shown here.";
        case PreviewContent::Kind::Unviewable: return "Files of this type cannot be shown here.";
        case PreviewContent::Kind::Unreachable: return content.reason + '.';
    }
    return {};
}

class Painter {
 public:
    Painter(HDC dc, const RECT& bounds) : dc_(dc), bounds_(bounds) {
        FillRect(dc, &bounds, GetSysColorBrush(backgroundColour));
        SetBkMode(dc, TRANSPARENT);
        const int margin = toPixels(sizes.margin);
        InflateRect(&bounds_, -margin, -margin);
        lineHeight_ = std::max(textHeight(dc, L"X", 1), 1);
    }

    void note(const std::string& text) {
        const std::wstring wide = widen(text);
        RECT at = bounds_;
        const int height = textHeight(dc_, wide, at.right - at.left);
        at.top = std::max(at.top, at.bottom - height);
        draw(wide, at, labelColour(), wrapped);
        bounds_.bottom = at.top - toPixels(sizes.rowGap);
    }

    void centredNote(const std::string& text) {
        const std::wstring wide = widen(text);
        const int spare =
            bounds_.bottom - bounds_.top - textHeight(dc_, wide, bounds_.right - bounds_.left);
        InflateRect(&bounds_, 0, -std::max(spare, 0) / 2);
        draw(wide, bounds_, labelColour(), wrapped | DT_CENTER);
    }

    /// Number of lines that a short value needs, two at most.
    int linesOf(const std::string& value) const {
        const int width = bounds_.right - bounds_.left - toPixels(sizes.labelWidth);
        return static_cast<int>(breakIntoLines(dc_, widen(value), width, 2).size());
    }

    void row(const char* label, const std::string& value, int linesBelow) {
        const int gap = toPixels(sizes.rowGap);
        RECT at = bounds_;
        at.bottom -= linesBelow * (lineHeight_ + gap);
        draw(widen(label), at, labelColour(), DT_NOPREFIX | DT_SINGLELINE);
        at.left += toPixels(sizes.labelWidth);
        const int room = std::max<int>((at.bottom - at.top) / lineHeight_, 1);
        const auto lines = breakIntoLines(dc_, widen(value.substr(0, maxAddressLength)),
                                          at.right - at.left, static_cast<std::size_t>(room));
        for (const std::wstring& line : lines) {
            draw(line, at, valueColour(), DT_NOPREFIX | DT_SINGLELINE);
            at.top += lineHeight_;
        }
        bounds_.top = std::max<LONG>(at.top, bounds_.top + lineHeight_) + gap;
    }

 private:
    void draw(const std::wstring& text, RECT at, COLORREF colour, UINT format) {
        SetTextColor(dc_, colour);
        DrawTextW(dc_, text.data(), static_cast<int>(text.size()), &at, format);
    }

    HDC dc_;
    RECT bounds_;
    int lineHeight_ = 0;
};

}  // namespace

void PreviewPanel::paint(HDC dc, const RECT& bounds, const PreviewContent& content) const {
    const ScopedSelectObject font(dc, font_.get());
    Painter painter(dc, bounds);
    const std::string note = noteFor(content);
    if (content.kind <= PreviewContent::Kind::Loading) return painter.centredNote(note);
    painter.note(note);
    const bool arrived = content.kind != PreviewContent::Kind::Unreachable;
    const std::string type = content.document.type.empty() ? "unknown" : content.document.type;
    painter.row("Address", content.address, arrived ? painter.linesOf(type) + 1 : 0);
    if (!arrived) return;
    painter.row("Type", type, 1);
    const std::string size = sizeText(content.document.size);
    painter.row("Size", size.empty() ? "unknown" : size, 0);
}

}  // namespace velvox
