#include "controlkit/scroll_painter_win32.h"

#include <algorithm>

#include "base/system_win32.h"

namespace velvox {
namespace {

class Painter {
 public:
    Painter(clsVirtualDC& surface, const ScrollControl& bar)
        : surface_(surface),
          bar_(bar),
          parts_(bar.geometry()),
          border_(std::max(1, pixels(scrollSizes.border))) {}

    void paint() {
        surface_.FillArea(area({0, bar_.length()}, 0), look(ScrollPart::Thumb).border);
        track(parts_.trackBefore(), ScrollPart::TrackBefore);
        track(parts_.trackAfter(), ScrollPart::TrackAfter);
        arrow(parts_.lessArrow(), ScrollPart::LessArrow);
        arrow(parts_.moreArrow(), ScrollPart::MoreArrow);
        thumb();
    }

 private:
    int pixels(int ofTable) const { return scaled(ofTable, bar_.dpi()); }

    ScrollPartLook look(ScrollPart part) const {
        return scrollPartLook(bar_, part, bar_.stateOf(part), CurrentSystemColours());
    }

    /// The rectangle of a span of the bar without `edge` pixels on both long sides.
    RECT area(Span along, int edge) const {
        const int across = bar_.thickness() - edge;
        if (bar_.axis() == Axis::Vertical) return {edge, along.start, across, along.end()};
        return {along.start, edge, along.end(), across};
    }

    void fill(Span along, int edge, Rgb colour) {
        if (along.length > 0 && 2 * edge < bar_.thickness())
            surface_.FillArea(area(along, edge), static_cast<OleColour>(colour));
    }

    /// A line across the bar at `along`, `margin` pixels away from both long sides.
    void line(int along, int margin) {
        if (2 * margin >= bar_.thickness()) return;
        const int end = bar_.thickness() - margin;
        if (bar_.axis() == Axis::Vertical)
            surface_.DrawLine(margin, along, end, along);
        else
            surface_.DrawLine(along, margin, along, end);
    }

    /// Leaves the outline visible at the ends of the bar, which the track reaches if there are no
    /// arrows.
    void track(Span span, ScrollPart part) { fill(inside(span), border_, look(part).fill); }

    /// The part of a span between the outlines at the two ends of the bar.
    Span inside(Span span) const {
        const int start = std::max(span.start, border_);
        return {start, std::min(span.end(), bar_.length() - border_) - start};
    }

    void raised(Span span, const ScrollPartLook& colours) {
        fill(span, 0, colours.border);
        fill({span.start + border_, span.length - 2 * border_}, border_, colours.fill);
    }

    void arrow(Span span, ScrollPart part) {
        const ScrollPartLook colours = look(part);
        raised(span, colours);
        const int room = span.length - 2 * (border_ + pixels(scrollSizes.arrowGlyphMargin));
        const int height = std::min({pixels(scrollSizes.arrowGlyph), room, bar_.thickness() / 4});
        if (height <= 0) return;
        surface_.PenColor(static_cast<OleColour>(colours.glyph));
        // The tip of the glyph is one pixel wide if the bar's thickness is odd, otherwise two. If
        // the space beside the glyph is odd, the extra pixel lies on the side of the bar's middle.
        const bool tipFirst = part == ScrollPart::LessArrow;
        const int space = (span.length - height) / 2;
        const int first = tipFirst ? span.start + space : span.end() - space - height;
        const int middle = (bar_.thickness() - 1) / 2;
        for (int row = 0; row < height; ++row) {
            line(tipFirst ? first + row : first + height - 1 - row, middle - row);
        }
    }

    void thumb() {
        const Span place = parts_.thumb();
        if (place.length == 0) return;
        const ScrollPartLook colours = look(ScrollPart::Thumb);
        // The thumb's outline overlaps the outline of an arrow that it touches, or without arrows
        // the outline of the bar, so that only one line is visible.
        const int start = std::max(0, place.start - border_);
        const Span outlined{start, std::min(bar_.length(), place.end() + border_) - start};
        raised(outlined, colours);
        if (bar_.Enabled()) grip(place, colours.glyph);
        if (bar_.hasFocus()) focusMark(outlined);
    }

    void grip(Span place, Rgb colour) {
        const int spacing = pixels(scrollSizes.gripSpacing);
        const int length = (scrollSizes.gripLines - 1) * spacing + 1;
        if (place.length < length + 2 * pixels(scrollSizes.minGripRoom)) return;
        surface_.PenColor(static_cast<OleColour>(colour));
        const int first = place.start + (place.length - length) / 2;
        for (int i = 0; i < scrollSizes.gripLines; ++i)
            line(first + i * spacing, border_ + pixels(scrollSizes.gripMargin));
    }

    void focusMark(Span outlined) {
        const int inset = border_ + pixels(scrollSizes.focusInset) - 1;
        if (outlined.length > 2 * inset && bar_.thickness() > 2 * inset)
            surface_.DrawFocusRect(
                area({outlined.start + inset, outlined.length - 2 * inset}, inset));
    }

    clsVirtualDC& surface_;
    const ScrollControl& bar_;
    ScrollGeometry parts_;
    int border_;
};

}  // namespace

void paintScrollBar(clsVirtualDC& surface, const ScrollControl& bar) {
    Painter(surface, bar).paint();
}

}  // namespace velvox
