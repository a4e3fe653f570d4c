// What filling a rich-edit control costs. The control lays out all of its text at once on the
// window's thread, so what is shown is bounded by this cost: a count of characters or lines alone
// lets one text take ten times as long as another.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velvox {

/// Adds up the cost of a text. The unit is a plain letter on a short line. The weights are measured
/// under Wine's control, which is by far the slowest; docs/performance.md has the figures.
class FillCost {
 public:
    /// The maximum cost of a text: what 32,767 lines "Download Image N", each a link, need.
    static constexpr std::size_t max = 1'920'000;

    struct Font {
        std::uint16_t face = 0;
        std::uint16_t halfPoints = 0;
        bool underlined = false;

        bool operator==(const Font&) const = default;
    };

    /// `width` of the character is 1 to 4; `column` is the width of the line before it. Both in
    /// characters of size 2.
    void addCharacter(char16_t c, std::size_t column, std::size_t width);
    void addLine();
    void addLink();
    /// A stretch of links that is formatted after streaming.
    void addSpan();
    /// A change of font or colour, to text in `font`.
    void addFormat(Font font);

    bool isExceeded() const noexcept { return spent_ > max; }

 private:
    enum class Kind { Blank, Letter, Digit, Sign, Other };
    static Kind kindOf(char16_t c);

    std::size_t spent_ = 0;
    Kind lastKind_ = Kind::Blank;
    std::array<Font, 8> recentFonts_{};  ///< fewer than Wine's control keeps
    std::size_t nextFont_ = 0;           ///< index into recentFonts_ of the oldest
};

}  // namespace velvox
