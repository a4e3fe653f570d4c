// The cost of filling a rich-edit control. The control lays out all of its text at once on the
// window's thread, so this cost limits what is shown. A limit on characters or lines alone would
// let one text take ten times as long as another.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace velvox {

/// Adds up the cost of a text. The unit is the cost of a plain letter on a short line. The weights
/// are measured with Wine's control, which is by far the slowest; docs/performance.md has the
/// figures.
class FillCost {
 public:
    /// The maximum cost of a text, enough for 32,767 lines "Download Image N" that are each a link.
    static constexpr std::size_t max = 1'920'000;

    struct Font {
        std::uint16_t face = 0;
        std::uint16_t halfPoints = 0;
        bool underlined = false;

        bool operator==(const Font&) const = default;
    };

    /// `width` is the width of the character, 1 to 4. `column` is the width of the line before the
    /// character. The unit of both is a character of size 2.
    void addCharacter(char16_t c, std::size_t column, std::size_t width);
    /// `columns` is the width of the line that ends, in characters of size 2.
    void addLine(std::size_t columns);
    void addLink();
    /// Adds a span of consecutive links, which gets the link format after streaming.
    void addSpan();
    /// Adds a change of font or colour. The text after the change is in `font`.
    void addFormat(Font font);

    bool isExceeded() const noexcept { return spent_ > max; }

 private:
    enum class Kind { Blank, Letter, Digit, Sign, Other };
    static Kind kindOf(char16_t c);

    std::size_t spent_ = 0;
    Kind lastKind_ = Kind::Blank;
    std::array<Font, 8> recentFonts_{};  ///< last fonts used; Wine's control caches more
    std::size_t nextFont_ = 0;           ///< index of the oldest one in recentFonts_
};

}  // namespace velvox
