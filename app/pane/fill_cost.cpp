#include "app/pane/fill_cost.h"

#include <algorithm>

namespace velvox {
namespace {

using std::size_t;

constexpr size_t lineCost = 16;
constexpr size_t formatCost = 14;
constexpr size_t newFontCost = 180;
constexpr size_t linkCost = 16;
constexpr size_t spanCost = 700;

// Number of columns up to which a line costs the same, because of the memory that the control takes
// for a line, even for an empty one.
constexpr size_t shortLine = 18;

// Cost of a new item for the text shaper. An item starts at a change of script, or between letters,
// digits and signs.
constexpr size_t itemCost = 3;

// Cost of a full row: the control splits the line there and shapes all the rest of the line again.
constexpr size_t rowCost = 36;

// Number of columns in a row of the pane, less half a word, because a word that does not fit moves
// to the next row.
constexpr size_t rowColumns(size_t width) {
    constexpr size_t columns = 34;
    constexpr size_t halfWord = 4;
    return columns - halfWord * width;
}

}  // namespace

FillCost::Kind FillCost::kindOf(char16_t c) {
    if (c == u' ') return Kind::Blank;
    if ((c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z')) return Kind::Letter;
    if (c >= u'0' && c <= u'9') return Kind::Digit;
    return c < 0x80 ? Kind::Sign : Kind::Other;
}

void FillCost::addCharacter(char16_t c, size_t column, size_t width) {
    const Kind kind = kindOf(c);
    const size_t row = rowColumns(width);
    const size_t rowsBefore = column / row;
    // Twice the cost, because the font may lack the character.
    const size_t shaping = kind == Kind::Other ? 2 : 1;
    spent_ += shaping * (1 + rowsBefore);
    if ((column + width) / row > rowsBefore) spent_ += rowCost;
    if (kind == Kind::Blank) return;
    if (kind != lastKind_ || kind == Kind::Other) spent_ += itemCost;
    lastKind_ = kind;
}

void FillCost::addLine(size_t columns) {
    spent_ += lineCost + shortLine - std::min(columns, shortLine);
    lastKind_ = Kind::Blank;
}

void FillCost::addLink() {
    spent_ += linkCost;
}

void FillCost::addSpan() {
    spent_ += spanCost;
}

void FillCost::addFormat(Font font) {
    spent_ += formatCost;
    if (std::find(recentFonts_.begin(), recentFonts_.end(), font) != recentFonts_.end()) return;
    spent_ += newFontCost;
    recentFonts_[nextFont_] = font;
    nextFont_ = (nextFont_ + 1) % recentFonts_.size();
}

}  // namespace velvox
